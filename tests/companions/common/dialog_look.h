// What each of the small dialogs looks like, whatever it is about.
#pragma once

#include <windows.h>

#include <vector>

// Its texts fit and nothing overlaps, each accelerator stands once, OK is the default button, and it is in
// the middle of its owner or of the screen, as far as that shows all of it.
void ExpectGoodLook(HWND dialog);

// The ids of the controls that the Tab key goes to, beginning with the focused one, once around. Radio
// buttons count as the one that has the focus of its group.
std::vector<int> TabOrder(HWND dialog);
