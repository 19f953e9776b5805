// The dialog that names a job at the print server.
#pragma once

#include <windows.h>

struct SessionBlock;

// IDOK if the choice, and the name of an entered one, went to the store, else IDCANCEL.
INT_PTR DoJobNameDialog(HWND owner, SessionBlock* session);

// Shows the job's name, or that it is formed automatically, on the page.
void ChangeJobName(HWND page, SessionBlock* session);
