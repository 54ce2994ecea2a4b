#pragma once

#include "com/dispatch.h"
#include "ide/vbe.h"

#include <utility>

namespace corvelle::automation {

/// An IDE's VBE object.
class VBEAdapter : public ide::VBE {
  public:
    explicit VBEAdapter(com::Dispatch object) : object_(std::move(object)) {}

    std::shared_ptr<ide::VBProject> ActiveVBProject() override;
    std::shared_ptr<ide::CodePane> ActiveCodePane() override;
    std::shared_ptr<ide::CommandBars> CommandBars() override;
    std::shared_ptr<ide::Events> Events() override;

  private:
    com::Dispatch object_;
};

} // namespace corvelle::automation
