// The plug-in's COM objects as the driver meets them: in the real module, by its two exports.
#include "oemps/printoem.h"

#include <gtest/gtest.h>

#include <array>
#include <cstring>
#include <vector>

namespace {

using GetClassObject = HRESULT(STDAPICALLTYPE*)(REFCLSID, REFIID, LPVOID*);
using CanUnloadNow = HRESULT(STDAPICALLTYPE*)();

constexpr CLSID kOtherClass = {0x12345678, 0, 0, {}};

class PlugIn : public testing::Test {
  protected:
    void SetUp() override {
        module = LoadLibraryA("ZRPDS31J.dll");
        ASSERT_NE(module, nullptr) << GetLastError();
        getClassObject = reinterpret_cast<GetClassObject>(
            reinterpret_cast<void*>(GetProcAddress(module, "DllGetClassObject")));
        canUnloadNow = reinterpret_cast<CanUnloadNow>(
            reinterpret_cast<void*>(GetProcAddress(module, "DllCanUnloadNow")));
        ASSERT_NE(getClassObject, nullptr);
        ASSERT_NE(canUnloadNow, nullptr);
        ASSERT_EQ(getClassObject(CLSID_OEMUI, IID_IClassFactory, reinterpret_cast<void**>(&factory)), S_OK);
        ASSERT_EQ(factory->CreateInstance(nullptr, IID_IPrintOemUI, reinterpret_cast<void**>(&plugIn)), S_OK);
    }
    void TearDown() override {
        if (plugIn)
            plugIn->Release();
        if (factory)
            factory->Release();
        if (module)
            FreeLibrary(module);
    }

    HMODULE module = nullptr;
    GetClassObject getClassObject = nullptr;
    CanUnloadNow canUnloadNow = nullptr;
    IClassFactory* factory = nullptr;
    IPrintOemUI* plugIn = nullptr;
};

// A driver's helper that counts its references.
class DriverHelper final : public IPrintOemDriverUI {
  public:
    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID iid, void** out) override {
        ++queries;
        if (!answersDriverUI || !IsEqualIID(iid, IID_IPrintOemDriverUI)) {
            *out = this; // what a failing query leaves behind must not be used
            return E_NOINTERFACE;
        }
        *out = static_cast<IPrintOemDriverUI*>(this);
        AddRef();
        return S_OK;
    }
    ULONG STDMETHODCALLTYPE AddRef() override { return ++references; }
    ULONG STDMETHODCALLTYPE Release() override { return --references; }
    HRESULT STDMETHODCALLTYPE DrvGetDriverSetting(PVOID, PCSTR, PVOID, DWORD, PDWORD, PDWORD) override {
        return E_NOTIMPL;
    }
    HRESULT STDMETHODCALLTYPE DrvUpgradeRegistrySetting(HANDLE, PCSTR, PCSTR) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE DrvUpdateUISetting(PVOID, PVOID, DWORD, DWORD) override { return S_OK; }

    bool answersDriverUI = true;
    int queries = 0;
    ULONG references = 1;
};

} // namespace

TEST_F(PlugIn, ClassObjectOfAnotherClassIsRefused) {
    void* out = nullptr;
    EXPECT_EQ(getClassObject(kOtherClass, IID_IClassFactory, &out), static_cast<HRESULT>(0x80040111));
}

TEST_F(PlugIn, ClassObjectWithAnotherInterfaceIsRefusedAndNoFactorySurvives) {
    void* out = this;
    EXPECT_EQ(getClassObject(CLSID_OEMUI, IID_IPrintOemUI, &out), static_cast<HRESULT>(0x80004002));
    EXPECT_EQ(out, nullptr);
}

TEST_F(PlugIn, FactoryAnswersForUnknownAndClassFactoryOnly) {
    for (const IID& iid : {IID_IUnknown, IID_IClassFactory}) {
        IUnknown* out = nullptr;
        ASSERT_EQ(factory->QueryInterface(iid, reinterpret_cast<void**>(&out)), S_OK);
        out->Release();
    }
    void* out = this;
    EXPECT_EQ(factory->QueryInterface(IID_IPrintOemUI, &out), static_cast<HRESULT>(0x80004002));
    EXPECT_EQ(out, nullptr);
}

TEST_F(PlugIn, FactoryRefusesAggregation) {
    void* out = nullptr;
    EXPECT_EQ(factory->CreateInstance(factory, IID_IUnknown, &out), static_cast<HRESULT>(0x80040110));
}

TEST_F(PlugIn, AnswersForUnknownAndPrintOemUIOnly) {
    for (const IID& iid : {IID_IUnknown, IID_IPrintOemUI}) {
        IUnknown* out = nullptr;
        ASSERT_EQ(plugIn->QueryInterface(iid, reinterpret_cast<void**>(&out)), S_OK);
        out->Release();
    }
    void* out = this;
    EXPECT_EQ(plugIn->QueryInterface(IID_IPrintOemDriverUI, &out), static_cast<HRESULT>(0x80004002));
    EXPECT_EQ(out, nullptr);
}

TEST_F(PlugIn, ReleaseOnTheLastReferenceReturns0) {
    IPrintOemUI* other = nullptr;
    ASSERT_EQ(factory->CreateInstance(nullptr, IID_IPrintOemUI, reinterpret_cast<void**>(&other)), S_OK);
    EXPECT_EQ(other->AddRef(), 2u);
    EXPECT_EQ(other->Release(), 1u);
    EXPECT_EQ(other->Release(), 0u);

    IClassFactory* otherFactory = nullptr;
    ASSERT_EQ(getClassObject(CLSID_OEMUI, IID_IUnknown, reinterpret_cast<void**>(&otherFactory)), S_OK);
    EXPECT_EQ(otherFactory->Release(), 0u);
}

TEST_F(PlugIn, CanBeUnloadedWithObjectsAliveButNotWhileALockIsHeld) {
    EXPECT_EQ(canUnloadNow(), S_OK);
    EXPECT_EQ(factory->LockServer(TRUE), S_OK);
    EXPECT_EQ(canUnloadNow(), S_FALSE);
    EXPECT_EQ(factory->LockServer(TRUE), S_OK);
    EXPECT_EQ(factory->LockServer(FALSE), S_OK);
    EXPECT_EQ(canUnloadNow(), S_FALSE);
    EXPECT_EQ(factory->LockServer(FALSE), S_OK);
    EXPECT_EQ(canUnloadNow(), S_OK);
}

TEST_F(PlugIn, GetInfoAnswersSignatureAndVersion) {
    DWORD value = 0;
    DWORD needed = 0;
    EXPECT_EQ(plugIn->GetInfo(OEMGI_GETSIGNATURE, &value, sizeof value, &needed), S_OK);
    EXPECT_EQ(value, 0x4D534654u);
    EXPECT_EQ(needed, 4u);
    EXPECT_EQ(plugIn->GetInfo(OEMGI_GETVERSION, &value, sizeof value, &needed), S_OK);
    EXPECT_EQ(value, 2u);
    EXPECT_EQ(needed, 4u);
}

TEST_F(PlugIn, GetInfoWithMode2IsRefusedByTheFirstRow) {
    DWORD value = 0xCCCCCCCC;
    DWORD needed = 0xCCCCCCCC;
    SetLastError(0);
    EXPECT_EQ(plugIn->GetInfo(2, &value, sizeof value, &needed), E_FAIL);
    EXPECT_EQ(GetLastError(), 87u);
    EXPECT_EQ(needed, 0xCCCCCCCC);
    EXPECT_EQ(value, 0xCCCCCCCC);
    EXPECT_EQ(plugIn->GetInfo(OEMGI_GETVERSION, &value, sizeof value, nullptr), E_FAIL);
    EXPECT_EQ(GetLastError(), 87u);
}

TEST_F(PlugIn, GetInfoAsksForFourBytes) {
    DWORD value = 0;
    for (const DWORD mode : {1, 3, 4}) {
        DWORD needed = 0;
        SetLastError(0);
        EXPECT_EQ(plugIn->GetInfo(mode, &value, 3, &needed), E_FAIL);
        EXPECT_EQ(needed, 4u);
        EXPECT_EQ(GetLastError(), 122u);
        EXPECT_EQ(plugIn->GetInfo(mode, nullptr, 4, &needed), E_FAIL);
        EXPECT_EQ(needed, 4u);
    }
}

TEST_F(PlugIn, GetInfoDoesNotSupportThePublisher) {
    DWORD value = 0;
    DWORD needed = 9;
    EXPECT_EQ(plugIn->GetInfo(4, &value, sizeof value, &needed), E_FAIL);
    EXPECT_EQ(needed, 0u);
    EXPECT_EQ(GetLastError(), 50u);
}

TEST_F(PlugIn, UnusedOperationsAreNotImplemented) {
    EXPECT_EQ(plugIn->DevQueryPrintEx(nullptr, nullptr, nullptr, nullptr), static_cast<HRESULT>(0x80004001));
    EXPECT_EQ(
        plugIn->DeviceCapabilitiesA(nullptr, nullptr, nullptr, 0, nullptr, nullptr, nullptr, 0, nullptr),
        static_cast<HRESULT>(0x80004001));
    EXPECT_EQ(plugIn->UpgradePrinter(0, nullptr), static_cast<HRESULT>(0x80004001));
    EXPECT_EQ(plugIn->FontInstallerDlgProc(nullptr, 0, 0, 0), static_cast<HRESULT>(0x80004001));
    EXPECT_EQ(plugIn->UpdateExternalFonts(nullptr, nullptr, nullptr), static_cast<HRESULT>(0x80004001));
}

TEST_F(PlugIn, ColorProfileAsksFor32AndCopiesTheNameAlone) {
    ULONG size = 31;
    FLONG flags = 0;
    std::array<wchar_t, 32> name;
    name.fill(L'x');
    EXPECT_EQ(plugIn->QueryColorProfile(nullptr, nullptr, nullptr, nullptr, 0, name.data(), &size, &flags),
              E_FAIL);
    EXPECT_EQ(size, 32u);
    EXPECT_EQ(GetLastError(), 122u);
    EXPECT_EQ(plugIn->QueryColorProfile(nullptr, nullptr, nullptr, nullptr, 0, nullptr, &size, &flags),
              E_FAIL);
    EXPECT_EQ(size, 32u);
    EXPECT_EQ(plugIn->QueryColorProfile(nullptr, nullptr, nullptr, nullptr, 0, name.data(), &size, &flags),
              S_OK);
    EXPECT_STREQ(name.data(), L"OEMPROFILE.icm");
    EXPECT_EQ(name[15], L'x');
    EXPECT_EQ(size, 32u);
    EXPECT_EQ(flags, 2u);
}

TEST_F(PlugIn, ColorProfileRefusesAnotherQuery) {
    ULONG size = 32;
    FLONG flags = 0;
    std::array<wchar_t, 32> name{};
    EXPECT_EQ(plugIn->QueryColorProfile(nullptr, nullptr, nullptr, nullptr, 1, name.data(), &size, &flags),
              E_FAIL);
    EXPECT_EQ(name[0], L'\0');
}

TEST_F(PlugIn, KeepsTheFirstPublishedDriverInterface) {
    DriverHelper first;
    DriverHelper second;
    EXPECT_EQ(plugIn->PublishDriverInterface(&first), S_OK);
    EXPECT_EQ(first.references, 2u);
    EXPECT_EQ(plugIn->PublishDriverInterface(&second), S_OK);
    EXPECT_EQ(second.queries, 0);
    plugIn->Release();
    plugIn = nullptr;
    EXPECT_EQ(first.references, 1u);
}

TEST_F(PlugIn, RefusesADriverWithoutTheHelperInterfaceAndAsksAgainLater) {
    DriverHelper helper;
    helper.answersDriverUI = false;
    EXPECT_EQ(plugIn->PublishDriverInterface(&helper), E_FAIL);
    EXPECT_EQ(plugIn->PublishDriverInterface(nullptr), E_FAIL);
    helper.answersDriverUI = true;
    EXPECT_EQ(plugIn->PublishDriverInterface(&helper), S_OK);
    EXPECT_EQ(helper.references, 2u);
}

TEST_F(PlugIn, DevModeAnswersTheSizeWithoutTouchingTheRecord) {
    std::vector<unsigned char> record(24112, 0xCC);
    OEMDMPARAM param{};
    param.cbSize = sizeof param;
    param.pOEMDMOut = record.data();
    EXPECT_EQ(plugIn->DevMode(OEMDM_SIZE, &param), S_OK);
    EXPECT_EQ(param.cbBufSize, 24112u);
    EXPECT_EQ(record, std::vector<unsigned char>(24112, 0xCC));
}

TEST_F(PlugIn, DevModeFillsDefaultsBehindAValidHeader) {
    std::vector<unsigned char> record(24112, 0xCC);
    OEMDMPARAM param{};
    param.pOEMDMOut = record.data();
    param.cbBufSize = 24112;
    EXPECT_EQ(plugIn->DevMode(OEMDM_DEFAULT, &param), S_OK);
    const std::array<unsigned char, 12> header{0x30, 0x5E, 0, 0, 0x54, 0x46, 0x53, 0x4D, 2, 0, 0, 0};
    EXPECT_EQ(std::memcmp(record.data(), header.data(), header.size()), 0);
    EXPECT_EQ(record[12], 0);
    EXPECT_EQ(record[13], 0xCC);
}

TEST_F(PlugIn, DevModeRefusesAMissingParameterAndOtherModes) {
    std::vector<unsigned char> record(24112, 0xCC);
    OEMDMPARAM param{};
    param.pOEMDMOut = record.data();
    param.pOEMDMIn = record.data();
    for (const DWORD mode : {0u, 5u, 0xFFFFFFFFu}) {
        SetLastError(0);
        EXPECT_EQ(plugIn->DevMode(mode, &param), E_FAIL);
        EXPECT_EQ(GetLastError(), 87u);
    }
    for (const DWORD mode : {1, 2, 3, 4}) {
        SetLastError(0);
        EXPECT_EQ(plugIn->DevMode(mode, nullptr), E_FAIL);
        EXPECT_EQ(GetLastError(), 87u);
    }
    EXPECT_EQ(record, std::vector<unsigned char>(24112, 0xCC));
}

TEST_F(PlugIn, DevModeRefusesMissingRecordsAndABufferThatIsTooSmall) {
    std::vector<unsigned char> record(24112, 0xCC);
    const auto refuses = [&](DWORD mode, void* in, void* out, DWORD size) {
        OEMDMPARAM param{};
        param.pOEMDMIn = in;
        param.pOEMDMOut = out;
        param.cbBufSize = size;
        SetLastError(0);
        return plugIn->DevMode(mode, &param) == E_FAIL && GetLastError() == 87;
    };
    for (const DWORD mode : {2, 3, 4}) {
        EXPECT_TRUE(refuses(mode, record.data(), nullptr, 24112));
        EXPECT_TRUE(refuses(mode, record.data(), record.data(), 24111));
    }
    for (const DWORD mode : {3, 4})
        EXPECT_TRUE(refuses(mode, nullptr, record.data(), 24112));
    EXPECT_EQ(record, std::vector<unsigned char>(24112, 0xCC));
}

TEST_F(PlugIn, DevModeReportsSuccessForARecordThatConvertRefused) {
    std::vector<unsigned char> target(24112, 0xCC);
    std::vector<unsigned char> source(24112, 0);
    OEMDMPARAM param{};
    param.pOEMDMOut = target.data();
    param.pOEMDMIn = source.data();
    EXPECT_EQ(plugIn->DevMode(OEMDM_CONVERT, &param), S_OK);
    EXPECT_EQ(target, std::vector<unsigned char>(24112, 0xCC));
}

TEST_F(PlugIn, DevModeMergeFailsWithoutPrinterInformationButKeepsTheMergedRecord) {
    std::vector<unsigned char> target(24112, 0);
    std::vector<unsigned char> source(24112, 0);
    OEMDMPARAM param{};
    param.pOEMDMOut = target.data();
    ASSERT_EQ(plugIn->DevMode(OEMDM_DEFAULT, &param), S_OK);
    param.pOEMDMOut = source.data();
    ASSERT_EQ(plugIn->DevMode(OEMDM_DEFAULT, &param), S_OK);
    std::strcpy(reinterpret_cast<char*>(source.data()) + 12, "job\n1");

    param.pOEMDMOut = target.data();
    param.pOEMDMIn = source.data();
    EXPECT_EQ(plugIn->DevMode(OEMDM_MERGE, &param), static_cast<HRESULT>(0x80004005));
    EXPECT_STREQ(reinterpret_cast<const char*>(target.data()) + 12, "job1");
}

TEST_F(PlugIn, CommonUIPropFailsWithoutPrinterInformation) {
    OEMCUIPPARAM param{};
    EXPECT_EQ(plugIn->CommonUIProp(1, &param), static_cast<HRESULT>(0x80004005));
    EXPECT_EQ(plugIn->CommonUIProp(1, nullptr), static_cast<HRESULT>(0x80004005));
}

TEST_F(PlugIn, SheetCallbacksRefuseMissingOrUnknownInformation) {
    PROPSHEETUI_INFO info{};
    info.Version = 0x200;
    SetLastError(0);
    EXPECT_EQ(plugIn->DocumentPropertySheets(nullptr, 0), E_FAIL);
    EXPECT_EQ(GetLastError(), 87u);
    EXPECT_EQ(plugIn->DocumentPropertySheets(&info, 0), E_FAIL);
    EXPECT_EQ(plugIn->DevicePropertySheets(nullptr, 0), E_FAIL);
    EXPECT_EQ(plugIn->DevicePropertySheets(&info, 0), E_FAIL);
}
