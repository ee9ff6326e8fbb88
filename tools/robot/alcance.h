#pragma once

/// Throws Falla unless the current window lies on the screen, each control that the Tab key reaches is in sight when it
/// has the focus, no caption is cut, and a screen reader is told what each control is and what it holds.
void exigirAlcance();
