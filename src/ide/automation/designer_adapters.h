#pragma once

#include "com/dispatch.h"
#include "ide/designer.h"

#include <utility>

namespace corvelle::automation {

/// An IDE's VBForm object: the designer of a form or of something like it.
class VBFormAdapter : public ide::VBForm {
  public:
    explicit VBFormAdapter(com::Dispatch object) : object_(std::move(object)) {}

    std::shared_ptr<ide::VBControls> VBControls() override;

  private:
    com::Dispatch object_;
};

/// An IDE's VBControls object.
class VBControlsAdapter : public ide::VBControls {
  public:
    explicit VBControlsAdapter(com::Dispatch object) : object_(std::move(object)) {}

    std::int32_t Count() override;
    std::shared_ptr<ide::VBControl> Item(std::int32_t index) override;

  private:
    com::Dispatch object_;
};

/// An IDE's VBControl object.
class VBControlAdapter : public ide::VBControl {
  public:
    explicit VBControlAdapter(com::Dispatch object) : object_(std::move(object)) {}

    std::string ClassName() override;
    std::shared_ptr<ide::Properties> Properties() override;

  private:
    com::Dispatch object_;
};

/// An IDE's Properties object.
class PropertiesAdapter : public ide::Properties {
  public:
    explicit PropertiesAdapter(com::Dispatch object) : object_(std::move(object)) {}

    std::shared_ptr<ide::Property> Item(std::string_view name) override;

  private:
    com::Dispatch object_;
};

/// An IDE's Property object.
class PropertyAdapter : public ide::Property {
  public:
    explicit PropertyAdapter(com::Dispatch object) : object_(std::move(object)) {}

    std::string Value() override;

  private:
    com::Dispatch object_;
};

} // namespace corvelle::automation
