// What the tests of printers that come and of printers that go have in common.
#pragma once

#include "Common/unique_com.h"
#include "oemps/oemui.h"
#include "tests/oemps/with_log.h"

#include <string>

// Events as the driver hands them to the plug-in.
class PrinterEvents : public WithLog {
  protected:
    HRESULT Send(int event, std::wstring name) { return plugIn->PrinterEvent(name.data(), event, 0, 0); }
    static std::wstring Wide(const std::string& text) {
        std::wstring wide(text.size(), L'\0');
        wide.resize(static_cast<std::size_t>(MultiByteToWideChar(
            932, 0, text.data(), static_cast<int>(text.size()), wide.data(), static_cast<int>(wide.size()))));
        return wide;
    }

    static constexpr HRESULT kNotImplemented = static_cast<HRESULT>(0x80004001);

    UniqueCom<IPrintOemUI> plugIn{new IOemUI};
};
