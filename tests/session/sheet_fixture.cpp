#include "sheet_fixture.h"

#include "session/initialize_data_manager.h"

#include <cstring>

std::size_t DriverItems::AddFeature(const std::string& keyword, std::uint32_t defaultOption, LONG sel,
                                    WORD options) {
    std::string& name = m_names.emplace_back(keyword);
    auto& feature =
        m_features.emplace_back(std::array<std::uint32_t, 4>{0xAAAA, 0xBBBB, 0xCCCC, defaultOption});
    USERDATA& data = m_userData.emplace_back();
    data.dwSize = sizeof data;
    data.dwItemID = reinterpret_cast<ULONG_PTR>(feature.data());
    data.pKeyWordName = name.data();
    OPTTYPE& type = m_types.emplace_back();
    type.cbSize = sizeof type;
    type.Count = options;

    OPTITEM item{};
    item.cbSize = sizeof item;
    item.Level = 2;
    item.UserData = reinterpret_cast<ULONG_PTR>(&data);
    item.Sel = sel;
    item.pOptType = &type;
    items.push_back(item);
    return items.size() - 1;
}

std::size_t DriverItems::AddPublic(BYTE pubId, LONG sel, DWORD flags) {
    OPTITEM item{};
    item.cbSize = sizeof item;
    item.Level = 1;
    item.Sel = sel;
    item.Flags = flags;
    item.DMPubID = pubId;
    items.push_back(item);
    return items.size() - 1;
}

std::string ReadText(void (*get)(char*)) {
    char text[1024] = {};
    get(text);
    return text;
}

SheetTest::SheetTest() {
    InitializeDataManager();

    block.pDriverUI = &driverUI;
    block.poemuiobj = reinterpret_cast<POEMUIOBJ>(0x1234);
    block.pOEMDM = record.get();
    block.dmDriverVersion = 0x502;
    block.pDrvExtra = driverArea.data();
    block.drvExtraSize = driverArea.size();
}

SheetTest::~SheetTest() {
    char key[260] = {};
    ExportedFunc_GetRegistryKeyName(key);
    ExportedFunc_DeleteRegistryKey(key);
}

void SheetTest::Bind() {
    OEMCUIPPARAM param{};
    param.cbSize = sizeof param;
    param.pDrvOptItems = driver.items.data();
    param.cDrvOptItems = static_cast<DWORD>(driver.items.size());
    CSession::HidePrinterSetting(&param, &block);
}

void SheetTest::SetCustomPageOfDriver(std::uint32_t width, std::uint32_t height, std::uint16_t direction) {
    std::memcpy(&driverArea[152], &width, 4);
    std::memcpy(&driverArea[156], &height, 4);
    std::memcpy(&driverArea[168], &direction, 2);
}
