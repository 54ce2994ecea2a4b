#pragma once

#include "forms/list_controls.h"
#include "forms/win32/control_window.h"

namespace corvelle::forms {

/// What a list box's and a combo box's window share: they differ in the messages.
class ListWindow : public ControlWindow {
  public:
    void update(Aspect aspect) override;
    void commanded(int code) override;

  protected:
    struct Messages {
        UINT add, reset, count, getChosen, setChosen;
        int chosen;
    };

    ListWindow(FormWindow& form, ListControl& list, const Messages& messages)
        : ControlWindow(form, list), list_(list), messages_(messages) {}

    void created() override;
    LRESULT handle(UINT message, WPARAM wParam, LPARAM lParam) override;
    const ListControl& list() const { return list_; }

  private:
    ListControl& list_;
    const Messages& messages_;
};

} // namespace corvelle::forms
