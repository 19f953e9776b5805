// A page or a dialog as somebody meets it who has no mouse.
#pragma once

#include <windows.h>

#include <map>
#include <string>
#include <vector>

using Ids = std::vector<int>;

// One key, as the message loop of a sheet sees it.
void Press(HWND dialog, WPARAM key, bool alt = false);

// The control of the dialog that has the focus, or of which a part has it.
int FocusedControl(HWND dialog);

// The controls that Tab reaches, from the first until it is back there. A wrong order ends after 100 steps.
Ids WalkByTab(HWND dialog);

// What a user can work: shown and enabled, and no label, frame or picture. Of radio buttons Tab reaches the
// checked one, so the others do not count; a spin control is worked by the arrow keys of its edit field.
Ids Workable(HWND dialog);

Ids Sorted(Ids ids);

// The accelerators of what is shown, each with the controls that have it.
std::map<char, Ids> Accelerators(HWND dialog);
void ExpectEachLetterOnce(const std::map<char, Ids>& users);
// These letters in their order and no other.
void ExpectLettersOnce(const std::map<char, Ids>& users, const std::string& letters);

// A template is translated and laid out by what it shows; the page then sets the same texts from the string
// table.
void ExpectTextsOfTemplate(HWND dialog, int id);
