#include "host/plugin.h"

#include "host/failure.h"
#include "host/module_function.h"
#include "host/wide.h"

#include <algorithm>
#include <cstdio>
#include <cstring>
#include <vector>

namespace {

// A block must at least have its head, and a DEVMODE's private part has at most 65535 bytes.
constexpr DWORD kMaxBlockSize = 0xFFFF;

std::string Status(HRESULT status) {
    char text[16];
    std::snprintf(text, sizeof text, "0x%08lX", static_cast<unsigned long>(status));
    return text;
}

// Only of a block that is not shorter.
OEM_DMEXTRAHEADER HeadOf(std::span<const std::byte> block) {
    OEM_DMEXTRAHEADER head{};
    std::memcpy(&head, block.data(), sizeof head);
    return head;
}

PDEVMODEW Public(std::span<std::byte> devmode) {
    return reinterpret_cast<PDEVMODEW>(devmode.data());
}

void CheckEvent(HRESULT status) {
    if (FAILED(status) && status != E_NOTIMPL)
        throw Failure("The plug-in fails at an event, status " + Status(status) + ".");
}

} // namespace

Plugin::Plugin(const DriverFiles& files) {
    std::wstring name = PluginFileName(files);
    if (name.empty())
        CreateRegistered();
    else
        LoadFromFolder(files, name);
    m_signature = Ask(OEMGI_GETSIGNATURE, "signature");
    m_version = Ask(OEMGI_GETVERSION, "version");
}

DWORD Plugin::Ask(DWORD mode, const char* what) {
    DWORD value = 0;
    DWORD needed = 0;
    HRESULT status = m_ui->GetInfo(mode, &value, sizeof value, &needed);
    if (FAILED(status))
        throw Failure(std::string("The plug-in does not tell its ") + what + ", status " + Status(status) +
                      ".");
    return value;
}

// Plug-ins of print drivers are not registered: all of them have the same class id. The driver loads the file
// that its .ini names and asks it for the class. The plug-in's own libraries are looked for in the same
// folder.
void Plugin::LoadFromFolder(const DriverFiles& files, const std::wstring& name) {
    std::wstring path = files.directory + name;
    m_module.Reset(LoadLibraryExW(path.c_str(), nullptr, LOAD_WITH_ALTERED_SEARCH_PATH));
    if (!m_module)
        throw Failure("The plug-in " + Utf8(path) + " can't be loaded, error " +
                      std::to_string(GetLastError()) + ".");
    using GetClassObject = HRESULT(WINAPI*)(REFCLSID, REFIID, void**);
    auto getClassObject = FunctionOf<GetClassObject>(m_module.Get(), "DllGetClassObject");
    if (!getClassObject)
        throw Failure("The plug-in " + Utf8(path) + " has no class.");
    IClassFactory* factory = nullptr;
    HRESULT status = getClassObject(CLSID_OEMUI, IID_IClassFactory, reinterpret_cast<void**>(&factory));
    if (FAILED(status) || !factory)
        throw Failure("The plug-in " + Utf8(path) + " refuses its class, status " + Status(status) + ".");
    UniqueCom<IClassFactory> owner(factory);
    IPrintOemUI* ui = nullptr;
    status = factory->CreateInstance(nullptr, IID_IPrintOemUI, reinterpret_cast<void**>(&ui));
    if (FAILED(status) || !ui)
        throw Failure("The plug-in " + Utf8(path) + " makes no object, status " + Status(status) + ".");
    m_ui.reset(ui);
}

// Where no .ini names the plug-in, a registration of the class may.
void Plugin::CreateRegistered() {
    IPrintOemUI* ui = nullptr;
    HRESULT status = CoCreateInstance(CLSID_OEMUI, nullptr, CLSCTX_INPROC_SERVER, IID_IPrintOemUI,
                                      reinterpret_cast<void**>(&ui));
    if (FAILED(status) || !ui)
        throw Failure("No plug-in is named by the driver's .ini nor registered, status " + Status(status) +
                      ".");
    m_ui.reset(ui);
}

void Plugin::Call(DWORD mode, OEMDMPARAM& param, const char* what) {
    HRESULT status = m_ui->DevMode(mode, &param);
    if (FAILED(status))
        throw Failure(std::string("The plug-in fails to ") + what + ", status " + Status(status) + ".");
}

void Plugin::PrinterEvent(LPWSTR printerName, int event, DWORD flags, LPARAM param) {
    CheckEvent(m_ui->PrinterEvent(printerName, event, flags, param));
}

void Plugin::DriverEvent(DWORD event, DWORD level, LPBYTE driverInfo, LPARAM param) {
    CheckEvent(m_ui->DriverEvent(event, level, driverInfo, param));
}

OEMDMPARAM Plugin::Param(HANDLE printer, std::span<std::byte> out, std::size_t blockSize) {
    OEMDMPARAM param{};
    param.cbSize = sizeof param;
    param.pdriverobj = &m_object;
    param.hPrinter = printer;
    param.hModule = m_module.Get();
    param.cbBufSize = static_cast<DWORD>(blockSize);
    if (!out.empty()) {
        param.pPublicDMOut = Public(out);
        param.pOEMDMOut = out.last(blockSize).data();
    }
    return param;
}

std::size_t Plugin::BlockSize(HANDLE printer) {
    OEMDMPARAM param = Param(printer, {}, 0);
    Call(OEMDM_SIZE, param, "tell the size of its settings");
    if (param.cbBufSize < sizeof(OEM_DMEXTRAHEADER) || param.cbBufSize > kMaxBlockSize)
        throw Failure("The plug-in asks for " + std::to_string(param.cbBufSize) + " bytes of settings.");
    return param.cbBufSize;
}

void Plugin::DefaultBlock(HANDLE printer, std::span<std::byte> out, std::size_t blockSize) {
    OEMDMPARAM param = Param(printer, out, blockSize);
    Call(OEMDM_DEFAULT, param, "make its default settings");
}

std::string Plugin::Trouble(std::span<const std::byte> block) const {
    if (block.size() < sizeof(OEM_DMEXTRAHEADER) || HeadOf(block).dwSize != block.size())
        return "The lengths inside the plug-in's part of the DEVMODE contradict each other.";
    if (HeadOf(block).dwSignature != m_signature)
        return "The DEVMODE holds the settings of another plug-in.";
    return {};
}

void Plugin::TakeBlock(HANDLE printer, std::span<std::byte> out, std::size_t blockSize, PDEVMODEW publicIn,
                       std::span<const std::byte> block) {
    // The plug-in reads as much as its own size; a shorter block is given with zeros behind it.
    std::vector<std::byte> copy(block.begin(), block.end());
    bool same = block.size() == blockSize && HeadOf(block).dwVersion == m_version;
    copy.resize(std::max(block.size(), blockSize));
    OEMDMPARAM param = Param(printer, out, blockSize);
    param.pPublicDMIn = publicIn;
    param.pOEMDMIn = copy.data();
    if (same)
        Call(OEMDM_MERGE, param, "take over stored settings");
    else
        Call(OEMDM_CONVERT, param, "convert stored settings");
}
