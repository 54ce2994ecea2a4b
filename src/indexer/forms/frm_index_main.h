#pragma once

#include "forms/controls.h"
#include "forms/form.h"

#include <cstdint>
#include <memory>
#include <string>

namespace corvelle::indexer {

/// Who waits for what the start menu's user chooses: the connect object.
class StartMenuOwner {
  public:
    virtual ~StartMenuOwner() = default;

    /// True ends the wait: the user has chosen a command.
    virtual void setbOK(bool chosen) = 0;
};

/// The indexer's start menu: asks what the user wants to do, records the choice and tells the connect object,
/// which waits for it. The commands are the only way out.
class FrmIndex_Main : public forms::Form {
  public:
    enum Choice : std::int16_t { CreateIndex = 0, EditIndex = 1, Nothing = 2 };

    explicit FrmIndex_Main(forms::Desktop& desktop);

    /// The connect object, which owns the window; set before it is shown.
    std::weak_ptr<StartMenuOwner> ThisMgr;
    /// The choice, one of Choice.
    std::int16_t myMode = CreateIndex;

    // Controls, in tab order.

    forms::Label Label1{*this, "Label1"};
    forms::CommandButton Command1{*this, "Command1"};
    forms::CommandButton Command2{*this, "Command2"};
    forms::CommandButton Command3{*this, "Command3"};
    forms::Frame Shape1{*this, "Shape1"};
    /// The hint for what the mouse is over; its tag is the hint's number.
    forms::Label lblInfo{*this, "lblInfo", &Shape1};
    forms::CommandButton CmdAbt{*this, "CmdAbt"};

  protected:
    void design() override;
    void Form_Load() override;
    void Form_MouseMove() override;

  private:
    void Command1_Click() { choose(CreateIndex); }
    void Command2_Click() { choose(EditIndex); }
    void Command3_Click() { choose(Nothing); }
    void CmdAbt_Click();

    void choose(Choice choice);
    void showHint(const std::string& number, const std::string& text);
};

} // namespace corvelle::indexer
