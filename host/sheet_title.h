// Gives a property sheet the title that it has on Windows.
#pragma once

#include <windows.h>

#include <string>

// Waits, while it lives, for this thread's property sheet to come up and names it. Wine's DocumentProperties
// asks nobody for a title and shows a general one ("オプション").
class SheetTitle {
  public:
    explicit SheetTitle(std::wstring title);
    ~SheetTitle();
    SheetTitle(const SheetTitle&) = delete;
    SheetTitle& operator=(const SheetTitle&) = delete;

  private:
    static LRESULT CALLBACK Watch(int code, WPARAM window, LPARAM param);

    DWORD m_thread;
    HHOOK m_hook;
};
