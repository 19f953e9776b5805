// The plug-in's document sheet in the process's own hands: the driver is played here, so that nothing but the
// plug-in is in what is seen or measured.
#pragma once

#include "host/install_printer.h"
#include "oemps/printoem.h"
#include "session/keyword.h"

#include <prsht.h>

#include <array>
#include <functional>
#include <memory>
#include <string>
#include <vector>

// Shows a property sheet of compstui; `work` is done on it before any other message of its loop, then it is
// cancelled.
void ShowSheetAndCancel(PFNPROPSHEETUI callback, LPARAM param, const std::function<void(HWND sheet)>& work);

// Paints the window and all in it that waits for it.
void PaintAll(HWND window);

// A driver whose tree has one item for every keyword, with the options that the plug-in lists for it.
class PlugInSheet {
  public:
    // Installs the printer "Orvane X100" and loads the plug-in from the driver's folder.
    PlugInSheet();
    ~PlugInSheet();
    PlugInSheet(const PlugInSheet&) = delete;
    PlugInSheet& operator=(const PlugInSheet&) = delete;

    // Why there is no plug-in, "" if there is one.
    const std::string& Trouble() const { return m_trouble; }
    HMODULE Module() const { return m_module; }

    // The calls of the driver before its sheet opens.
    void Prepare();
    // The sheet itself, which Prepare goes before.
    void Show(const std::function<void(HWND sheet)>& work);

    // Called before the first page sees its WM_INITDIALOG.
    std::function<void()> beforeFirstPage;

  private:
    static LONG_PTR CALLBACK AddPage(HANDLE sheet, UINT function, LPARAM first, LPARAM second);
    static INT_PTR CALLBACK FirstPage(HWND page, UINT message, WPARAM wParam, LPARAM lParam);
    static LONG CALLBACK Sheet(PPROPSHEETUI_INFO info, LPARAM param);
    std::string Load();
    void MakeItems();

    std::string m_trouble;
    HMODULE m_module = nullptr;
    HANDLE m_printer = nullptr;
    HANDLE m_heap = nullptr;
    std::vector<unsigned char> m_record;
    std::array<std::array<DWORD, 4>, kKeywordCount> m_features{};
    std::array<USERDATA, kKeywordCount> m_userData{};
    std::array<OPTITEM, kKeywordCount> m_items{};
    std::array<OPTTYPE, kKeywordCount> m_optTypes{};
    struct {
        DEVMODEW devmode{};
        unsigned char extra[400] = {};
    } m_public;
    OEMCUIPPARAM m_param{};
    OEMUIPSPARAM m_sheet{};
    IClassFactory* m_factory = nullptr;
    IPrintOemUI* m_plugIn = nullptr;
};
