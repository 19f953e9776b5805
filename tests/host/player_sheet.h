// A property sheet of the test's own for the player: two pages with the controls that the driver's have.
#pragma once

#include <windows.h>

#include <string>
#include <vector>

// What the sheet of one test has seen.
struct Seen {
    std::vector<int> comboCodes; // notifications of the extended combo box
    std::vector<int> answers;
    int edits = 0;
    int applied = 0;
    int opened = 0;
    std::vector<std::string> listed; // the rows of the list that were selected
    std::vector<DWORD> ended;        // with what the other program ended
};
extern Seen g_seen;

// Returns when the sheet is closed.
void OpenSheet();
