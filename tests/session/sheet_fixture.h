// What a driver hands to the plug-in when a sheet opens, built by hand, and a store that is ready.
#pragma once

#include "session/datamanager.h"
#include "session/session.h"
#include "tests/support/bank_values.h"

#include <gtest/gtest.h>

#include <array>
#include <deque>
#include <memory>
#include <string>
#include <vector>

// The driver's items with everything that they point to.
class DriverItems {
  public:
    // A document-sticky feature; returns its place in `items`.
    std::size_t AddFeature(const std::string& keyword, std::uint32_t defaultOption, LONG sel,
                           WORD options = 4);
    // A public setting, at the tree's first level.
    std::size_t AddPublic(BYTE pubId, LONG sel, DWORD flags = 0);

    std::vector<OPTITEM> items;

  private:
    std::deque<std::string> m_names;
    std::deque<USERDATA> m_userData;
    std::deque<std::array<std::uint32_t, 4>> m_features;
    std::deque<OPTTYPE> m_types;
};

// Records what the driver is told.
struct FakeDriver final : IPrintOemDriverUI {
    struct Call {
        PVOID object;
        PVOID item;
        DWORD previous;
        DWORD mode;
        bool operator==(const Call&) const = default;
    };
    std::vector<Call> calls;
    HRESULT answer = S_OK;

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID, void**) override { return E_NOINTERFACE; }
    ULONG STDMETHODCALLTYPE AddRef() override { return 1; }
    ULONG STDMETHODCALLTYPE Release() override { return 1; }
    HRESULT STDMETHODCALLTYPE DrvGetDriverSetting(PVOID, PCSTR, PVOID, DWORD, PDWORD, PDWORD) override {
        return E_NOTIMPL;
    }
    HRESULT STDMETHODCALLTYPE DrvUpgradeRegistrySetting(HANDLE, PCSTR, PCSTR) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE DrvUpdateUISetting(PVOID object, PVOID item, DWORD previous,
                                                 DWORD mode) override {
        calls.push_back({object, item, previous, mode});
        return answer;
    }
};

template <typename Value>
Value ReadNumber(void (*get)(Value*)) {
    Value value{};
    get(&value);
    return value;
}
std::string ReadText(void (*get)(char*));

// A zeroed record, a driver's area of 256 bytes, version 0x502 and no printer.
class SheetTest : public testing::Test {
  protected:
    SheetTest();
    ~SheetTest() override;

    // Runs CSession::HidePrinterSetting on `driver`.
    void Bind();
    void SetCustomPageOfDriver(std::uint32_t width, std::uint32_t height, std::uint16_t direction);
    OPTITEM& Item(std::size_t place) { return driver.items[place]; }
    CSession Session() { return CSession(&block); }

    DriverItems driver;
    FakeDriver driverUI;
    std::unique_ptr<PrivateDevMode> record = std::make_unique<PrivateDevMode>();
    std::array<std::uint8_t, 256> driverArea{};
    SessionBlock block{};
};
