// What a sheet pays for the session: binding and loading when it opens, and an apply with nothing changed,
// with every keyword bound and no printer. Prints figures; judges nothing.
#include "bench/timing.h"
#include "session/datamanager.h"
#include "session/session.h"

#include <array>
#include <memory>
#include <vector>

namespace {

// A driver's tree in which each keyword has an item.
struct Tree {
    std::array<std::uint32_t, 4> feature{};
    OPTTYPE type{};
    std::vector<USERDATA> data{std::size_t{kKeywordCount}};
    std::vector<OPTITEM> items{std::size_t{kKeywordCount}};

    Tree() {
        for (std::size_t id = 0; id < items.size(); ++id) {
            data[id].dwItemID = reinterpret_cast<ULONG_PTR>(feature.data());
            data[id].pKeyWordName = const_cast<char*>(kKeywordNames[id]);
            items[id].Level = 2;
            items[id].UserData = reinterpret_cast<ULONG_PTR>(&data[id]);
            items[id].pOptType = &type;
        }
    }
};

} // namespace

int main() {
    ExportedFunc_InitializeDataManager();
    char key[260] = {};
    ExportedFunc_CreateDataSettingRegistryKeyName(key);
    ExportedFunc_CreateDataSettingRegistryKey(key, kKeywordCount);

    Tree tree;
    const auto record = std::make_unique<PrivateDevMode>();
    std::array<std::uint8_t, 256> driverArea{};
    SessionBlock block{};
    block.pOEMDM = record.get();
    block.dmDriverVersion = 0x600;
    block.pDrvExtra = driverArea.data();
    block.drvExtraSize = driverArea.size();
    OEMCUIPPARAM param{};
    param.pDrvOptItems = tree.items.data();
    param.cDrvOptItems = static_cast<DWORD>(tree.items.size());

    Report("HidePrinterSetting", [&] { CSession::HidePrinterSetting(&param, &block); });
    Report("ApplyAll with nothing changed", [&] { CSession(&block).ApplyAll(); });
    Report("1000 x GetCurrent", [] {
        std::uint32_t value = 0;
        for (int i = 0; i < 1000; ++i)
            ExportedFunc_GetCurrent(i % kKeywordCount, &value);
    });

    ExportedFunc_DeleteRegistryKey(key);
    return 0;
}
