#pragma once

#include "forms/controls.h"
#include "forms/drawing.h"

// What the designs of the indexer's dialogs have in common. All lengths are twips.
namespace corvelle::indexer::dialog {

inline constexpr int edge = 45;
inline constexpr int margin = 120;
inline constexpr int lineHeight = 195;
inline constexpr int boxHeight = 315;
inline constexpr int buttonHeight = 375;
inline constexpr int buttonWidth = 1335;
inline constexpr int browseWidth = 495;
inline constexpr int infoWidth = 2385;
/// How far a control lies below the label above it.
inline constexpr int below = 225;

/// Gives the caption and the place; a button has its usual size.
void design(forms::Label& label, const char* caption, const forms::Bounds& bounds);
void design(forms::CommandButton& button, const char* caption, int left, int top);
/// The text that speaks of the window, at its left side.
void designInfo(forms::Label& info, int top, int height);

} // namespace corvelle::indexer::dialog
