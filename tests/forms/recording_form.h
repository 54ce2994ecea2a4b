#pragma once

#include "forms/controls.h"
#include "forms/form.h"
#include "forms/headless/headless_desktop.h"
#include "forms/list_controls.h"

#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace corvelle::forms {

/// A form with one control of each kind that writes down its events. A test sets what more a handler does.
class RecordingForm : public Form {
  public:
    explicit RecordingForm(Desktop& desktop, std::string name = "Recording")
        : Form(desktop, std::move(name)) {
        for (Control* control : controls()) {
            control->onClick = [this, control] { heard(control->name() + " Click"); };
            control->onMouseMove = [this, control] { heard(control->name() + " MouseMove"); };
            control->onGotFocus = [this, control] { heard(control->name() + " GotFocus"); };
            control->onLostFocus = [this, control] { heard(control->name() + " LostFocus"); };
        }
        text.onChange = [this] { heard("text Change"); };
        text.onKeyPress = [this] { heard("text KeyPress"); };
        combo.onKeyDown = [this](int key) { heard("combo KeyDown " + std::to_string(key)); };
        slider.onChange = [this] { heard("slider Change"); };
        slider.onScroll = [this] { heard("slider Scroll"); };
        surface.onResize = [this] { heard("surface Resize"); };
        surface.onReset = [this] { heard("surface Reset"); };
    }

    int publicVariable = 0;
    std::vector<std::string> log;
    /// Forgets what has happened so far.
    void forget() { log.clear(); }
    int count(const std::string& event) const {
        int found = 0;
        for (const std::string& line : log) found += line == event ? 1 : 0;
        return found;
    }

    std::function<void()> inDesign, inLoad, inActivate, inResize, inClick;
    std::function<void(bool&cancel)> inQueryUnload, inUnload;
    BorderStyle designedStyle = BorderStyle::Sizable;
    bool designedPreview = false;
    Size designedLeast;

    CommandButton button{*this, "button"};
    CheckBox check{*this, "check"};
    TextBox text{*this, "text"};
    ComboBox combo{*this, "combo"};
    ListBox list{*this, "list"};
    Slider slider{*this, "slider"};
    TabStrip tabs{*this, "tabs"};
    Label label{*this, "label"};
    Image image{*this, "image"};
    Frame frame{*this, "frame"};
    CommandButton inner{*this, "inner", &frame};
    Surface surface{*this, "surface"};

  protected:
    void design() override {
        log.emplace_back("design");
        setCaption("As designed");
        setSize({3000, 1500});
        setBorderStyle(designedStyle);
        setKeyPreview(designedPreview);
        setLeastSize(designedLeast);
        setDefaultButton(button);
        setCancelButton(inner);
        button.setCaption("&Press && go");
        check.setValue(1);
        text.setText("designed text");
        for (const char* row : {"a", "b", "c"}) combo.addItem(row), list.addItem(row);
        combo.setListIndex(1);
        list.setListIndex(2);
        slider.setRange({0, 100, 1, 10});
        slider.setValue(40);
        tabs.setTabs({"one", "two"});
        tabs.select(2);
        surface.setBounds({0, 0, 300, 150});
        if (inDesign) inDesign();
    }
    void Form_Load() override { log.emplace_back("Load"), run(inLoad); }
    void Form_Activate() override { log.emplace_back("Activate"), run(inActivate); }
    void Form_Resize() override { log.emplace_back("Resize"), run(inResize); }
    void Form_Click() override { log.emplace_back("Form Click"), run(inClick); }
    void Form_MouseMove() override { log.emplace_back("Form MouseMove"); }
    void Form_KeyUp(int keyCode) override { log.push_back("KeyUp " + std::to_string(keyCode)); }
    void Form_QueryUnload(bool& cancel, UnloadMode mode) override {
        log.emplace_back(mode == UnloadMode::CloseBox ? "QueryUnload by close box" : "QueryUnload by code");
        if (inQueryUnload) inQueryUnload(cancel);
    }
    void Form_Unload(bool& cancel) override {
        log.emplace_back("Unload");
        if (inUnload) inUnload(cancel);
    }

  private:
    void heard(std::string event) { log.push_back(std::move(event)); }
    static void run(const std::function<void()>& action) {
        if (action) action();
    }
};

} // namespace corvelle::forms
