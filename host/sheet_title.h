// Gives a property sheet the title that it has on Windows.
#pragma once

#include <windows.h>

#include <string>
#include <vector>

// Names the first property sheet that this thread opens while the object lives, and no other window. Wine's
// DocumentProperties asks nobody for a title and shows a general one ("オプション"). Made and destroyed on
// the sheet's thread.
class SheetTitle {
  public:
    explicit SheetTitle(std::wstring title);
    ~SheetTitle();
    SheetTitle(const SheetTitle&) = delete;
    SheetTitle& operator=(const SheetTitle&) = delete;

  private:
    static LRESULT CALLBACK AwaitSheet(int code, WPARAM window, LPARAM param);
    static LRESULT CALLBACK AwaitLoop(int code, WPARAM removed, LPARAM message);

    bool IsSheet(HWND window) const;
    void Hook(int kind, HOOKPROC function);
    void Unhook();

    std::wstring m_title;
    std::vector<HWND> m_others; // the windows that were there before the sheet
    HWND m_sheet = nullptr;
    HHOOK m_hook = nullptr;
};
