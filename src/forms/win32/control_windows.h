#pragma once

#include "forms/win32/control_window.h"

#include <memory>

namespace corvelle::forms {

class CheckBox;
class ComboBox;
class CommandButton;
class Frame;
class Image;
class Label;
class ListBox;
class Slider;
class Surface;
class TabStrip;
class TextBox;

// The windows of the several kinds of control; each stands in the file of its name.

std::unique_ptr<ControlWindow> makeLabelWindow(FormWindow& form, Label& label);
std::unique_ptr<ControlWindow> makeButtonWindow(FormWindow& form, CommandButton& button);
std::unique_ptr<ControlWindow> makeCheckBoxWindow(FormWindow& form, CheckBox& box);
std::unique_ptr<ControlWindow> makeTextBoxWindow(FormWindow& form, TextBox& box);
std::unique_ptr<ControlWindow> makeComboBoxWindow(FormWindow& form, ComboBox& box);
std::unique_ptr<ControlWindow> makeListBoxWindow(FormWindow& form, ListBox& list);
std::unique_ptr<ControlWindow> makeFrameWindow(FormWindow& form, Frame& frame);
std::unique_ptr<ControlWindow> makeImageWindow(FormWindow& form, Image& image);
std::unique_ptr<ControlWindow> makeSliderWindow(FormWindow& form, Slider& slider);
std::unique_ptr<ControlWindow> makeTabStripWindow(FormWindow& form, TabStrip& tabs);
std::unique_ptr<ControlWindow> makeSurfaceWindow(FormWindow& form, Surface& surface);

} // namespace corvelle::forms
