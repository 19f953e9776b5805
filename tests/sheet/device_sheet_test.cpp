// The printer's own sheet with the real driver, both dialogs and the job property application: what a user
// enters there stands in the printer's data and in the registry, and in the record of the next job.
#include "companions/authentication/authentication_resource.h"
#include "companions/communication/communication_resource.h"
#include "host/driverhost_player.h"
#include "host/driverhost_programs.h"
#include "host/driverhost_settings_file.h"
#include "host/driverhost_text.h"
#include "host/install_printer.h"
#include "host/module_function.h"
#include "host/x100drvui.h"
#include "oemps/devmode.h"
#include "resources/resource.h"
#include "tests/sheet/program.h"
#include "tests/sheet/text_script.h"
#include "tests/support/made_key.h"

#include <gtest/gtest.h>

#include <cstring>
#include <optional>
#include <string>
#include <vector>

#include <winddiui.h>

namespace {

constexpr wchar_t kApplication[] = L"PrinterDriverApplication.exe";
// Its header shares names with that of the authentication dialog.
constexpr int kApplicationHint = 218;
constexpr char kGuid[] = "{5D2C7A90-1F34-4C6E-9B1A-0E9F3D6B7C21}";
constexpr char kUserData[] = "Software\\Zephra\\ZR Print Driver Data";

const std::string kName = "Device sheet " + std::to_string(GetCurrentProcessId());
const std::wstring kWideName(kName.begin(), kName.end());

std::string OpenAuthentication() {
    return Line("click", IDC_DEVICE_AUTHENTICATION);
}
std::string OpenCommunication() {
    return Line("click", IDC_DEVICE_COMMUNICATION);
}
std::string Enter(int control, const std::string& text) {
    return "type " + std::to_string(control) + " \"" + text + "\"\n";
}
std::string Check(int control, bool isOn = true) {
    return "check " + std::to_string(control) + (isOn ? " on\n" : " off\n");
}
std::string ExpectChecked(int control, bool isOn) {
    return "expect checked " + std::to_string(control) + (isOn ? " on\n" : " off\n");
}
std::string ExpectText(int control, const std::string& text) {
    return "expect text " + std::to_string(control) + " \"" + text + "\"\n";
}
std::string ExpectEnabled(int control, bool isEnabled = true) {
    return Line(isEnabled ? "expect enabled" : "expect disabled", control);
}

const std::string kPage = "expect page 初期設定\n";
const std::string kOk = "click 1\n";
const std::string kCancel = "click 2\n";
const std::string kSheetOk = "press ok\n";
const std::string kSheetCancel = "press cancel\n";

std::string EnterAccount(const std::string& user, const std::string& password, const std::string& account) {
    return OpenAuthentication() + Check(IDC_MODE_ON) + Check(IDC_OWNER_SPECIFIED) + Enter(IDC_USER_ID, user) +
           Enter(IDC_PASSWORD, password) + Enter(IDC_ACCOUNT, account);
}

// A value's bytes; nothing if it is not there.
std::optional<std::string> PrinterData(const char* name, DWORD expectedType) {
    std::string printerName = kName;
    HANDLE printer = nullptr;
    EXPECT_TRUE(OpenPrinterA(printerName.data(), &printer, nullptr));
    std::string bytes(1024, '\0');
    DWORD type = 0;
    DWORD size = 0;
    const DWORD status =
        GetPrinterDataExA(printer, "PrinterDriverData", name, &type, reinterpret_cast<BYTE*>(bytes.data()),
                          static_cast<DWORD>(bytes.size()), &size);
    ClosePrinter(printer);
    if (status != ERROR_SUCCESS)
        return std::nullopt;
    EXPECT_EQ(type, expectedType) << name;
    bytes.resize(size);
    return bytes;
}

std::optional<std::uint32_t> PrinterNumber(const char* name) {
    const auto bytes = PrinterData(name, REG_DWORD);
    std::uint32_t number = 0;
    if (!bytes || bytes->size() != sizeof number)
        return std::nullopt;
    std::memcpy(&number, bytes->data(), sizeof number);
    return number;
}

void SetPrinterNumber(const char* name, DWORD number) {
    std::string printerName = kName;
    HANDLE printer = nullptr;
    PRINTER_DEFAULTSA access{nullptr, nullptr, PRINTER_ALL_ACCESS};
    EXPECT_TRUE(OpenPrinterA(printerName.data(), &printer, &access));
    EXPECT_EQ(SetPrinterDataExA(printer, "PrinterDriverData", name, REG_DWORD,
                                reinterpret_cast<BYTE*>(&number), sizeof number),
              static_cast<DWORD>(ERROR_SUCCESS));
    ClosePrinter(printer);
}

std::optional<std::string> PrinterText(const char* name) {
    const auto bytes = PrinterData(name, REG_SZ);
    return bytes ? std::optional<std::string>(bytes->c_str()) : std::nullopt;
}

std::optional<std::string> UserText(const char* name) {
    const std::string key = std::string(kUserData) + "\\" + kName + kGuid + "\\UserInfo";
    std::string text(256, '\0');
    DWORD size = static_cast<DWORD>(text.size());
    if (RegGetValueA(HKEY_CURRENT_USER, key.c_str(), name, RRF_RT_REG_SZ, nullptr, text.data(), &size) !=
        ERROR_SUCCESS)
        return std::nullopt;
    return text.c_str();
}

std::string LoggedInUser() {
    char name[257] = "";
    DWORD size = sizeof name;
    GetUserNameA(name, &size);
    return name;
}

class DeviceSheetOfAPrinter : public testing::Test {
  protected:
    void SetUp() override {
        m_connection.Write("GuidPrinter", kGuid);
        ASSERT_EQ(driverhost::CountRunning(kApplication), 0);
        ASSERT_TRUE(InstallPrinter(OwnFolder().wstring(), kWideName).ok);
    }
    void TearDown() override {
        const ProgramResult removed = RunDriverhost({L"--remove", L"--printer", kWideName});
        EXPECT_EQ(removed.status, 0u) << removed.output;
        RegDeleteTreeA(HKEY_CURRENT_USER, (std::string(kUserData) + "\\" + kName + kGuid).c_str());
        EXPECT_EQ(driverhost::CountRunning(kApplication), 0);
    }

    static void Play(const std::string& script) {
        PlayText(script, OwnFolder(), {L"--device", L"--printer", kWideName});
    }

    // The record that a job gets: its settings go through the printing preferences.
    static PrivateDevMode JobOfNow() {
        PlayText("expect page 基本\npress ok\n", OwnFolder(), {L"--printer", kWideName});
        std::string error;
        const std::vector<std::byte> stored = driverhost::SettingsFile(kWideName).Load(error);
        EXPECT_EQ(error, "");
        PrivateDevMode record{};
        if (stored.size() < sizeof record) {
            ADD_FAILURE() << "no settings are stored";
            return record;
        }
        std::memcpy(&record, stored.data() + stored.size() - sizeof record, sizeof record);
        return record;
    }

    static void ExpectOwner(const PrivateDevMode& record, const std::string& user,
                            const std::string& password, const std::string& account) {
        EXPECT_EQ(record.ManageMethod, 1u);
        EXPECT_EQ(record.SpecifyJobOwnerName, 1u);
        EXPECT_EQ(record.AuthJobUserId, user);
        EXPECT_EQ(record.AuthJobPassword, password);
        EXPECT_EQ(record.AuthJobAccount, account);
    }
    static void ExpectNoOwner(const PrivateDevMode& record) {
        EXPECT_EQ(record.ManageMethod, 0u);
        EXPECT_EQ(record.SpecifyJobOwnerName, 0u);
        EXPECT_STREQ(record.AuthJobUserId, "");
        EXPECT_STREQ(record.AuthJobPassword, "");
        EXPECT_STREQ(record.AuthJobAccount, "");
    }

    // A sheet whose driver only lets its settings be seen. driverhost itself always has the permission.
    static std::string PlayReadOnly(const std::string& text) {
        const script::Script script = script::Parse(driverhost::Utf8OfAnsi(text));
        EXPECT_FALSE(script.error) << script.error->message;
        driverhost::Show show;
        show.open = OpenReadOnly;
        show.actions = &script.actions;
        show.file = "read only";
        show.sheetLimit = std::chrono::seconds(60);
        return driverhost::RunSheet(show);
    }

    static std::wstring DriverModuleFile() {
        return InstallPrinter(OwnFolder().wstring(), kWideName).driverDirectory + L"\\x100drvui.dll";
    }

    static void OpenReadOnly() {
        const HMODULE module =
            LoadLibraryExW(DriverModuleFile().c_str(), nullptr, LOAD_WITH_ALTERED_SEARCH_PATH);
        const auto sheets = FunctionOf<PFNDRVPROPERTYSHEETS>(module, "DrvDevicePropertySheets");
        std::wstring name = kWideName;
        HANDLE printer = nullptr;
        OpenPrinterW(name.data(), &printer, nullptr);
        DEVICEPROPERTYHEADER header{sizeof header, DPS_NOPERMISSION, printer, name.data()};
        DWORD result = 0;
        EXPECT_GE(CommonPropertySheetUIW(nullptr, sheets, reinterpret_cast<LPARAM>(&header), &result), 0);
        ClosePrinter(printer);
    }

    MadeKey m_connection{"Printers\\Connections\\,,server," + kName, HKEY_CURRENT_USER};
};

TEST_F(DeviceSheetOfAPrinter, LaysTheAccountThatWasEnteredOverTheNextJob) {
    Play(kPage + EnterAccount("表田", "ソ secret", "十-01") + kOk + kSheetOk);
    EXPECT_EQ(PrinterNumber("ManageMethod"), 1u);
    EXPECT_EQ(UserText("JobOwnerName_User"), "表田");
    EXPECT_EQ(UserText("JobOwnerNamePassword_User"), "ソ secret");
    EXPECT_EQ(UserText("AccountID_User"), "十-01");
    EXPECT_TRUE(UserText("SpecifyJobOwnerName_User"));
    ExpectOwner(JobOfNow(), "表田", "ソ secret", "十-01");
}

TEST_F(DeviceSheetOfAPrinter, LaysTheLoginNameOverTheNextJob) {
    Play(OpenAuthentication() + Check(IDC_MODE_ON) + ExpectText(IDC_LOGIN_NAME, LoggedInUser()) + kOk +
         kSheetOk);
    EXPECT_EQ(UserText("SpecifyJobOwnerName_User"), "LoginName");
    ExpectOwner(JobOfNow(), LoggedInUser(), "", "");
}

// Somebody else has turned the mode on.
TEST_F(DeviceSheetOfAPrinter, LaysTheLoginNameOverTheJobOfAUserWhoHasStoredNothing) {
    SetPrinterNumber("ManageMethod", 1);
    const PrivateDevMode record = JobOfNow();
    EXPECT_EQ(record.ManageMethod, 1u);
    EXPECT_EQ(record.SpecifyJobOwnerName, 0u);
    EXPECT_EQ(record.AuthJobUserId, LoggedInUser());
    EXPECT_STREQ(record.AuthJobPassword, "");
    EXPECT_STREQ(record.AuthJobAccount, "");
}

TEST_F(DeviceSheetOfAPrinter, LaysAChangedAccountOverAJobThatHadAnotherOne) {
    Play(EnterAccount("suzuki", "secret", "keiri") + kOk + kSheetOk);
    ExpectOwner(JobOfNow(), "suzuki", "secret", "keiri");
    Play(OpenAuthentication() + ExpectText(IDC_USER_ID, "suzuki") + Enter(IDC_USER_ID, "tanaka") + kOk +
         kSheetOk);
    ExpectOwner(JobOfNow(), "tanaka", "secret", "keiri");
}

TEST_F(DeviceSheetOfAPrinter, TakesTheOwnerFromTheNextJobOnceTheModeIsOff) {
    Play(EnterAccount("suzuki", "secret", "keiri") + kOk + kSheetOk);
    ExpectOwner(JobOfNow(), "suzuki", "secret", "keiri");
    Play(OpenAuthentication() + ExpectChecked(IDC_MODE_ON, true) + Check(IDC_MODE_OFF) + kOk + kSheetOk);
    EXPECT_EQ(PrinterNumber("ManageMethod"), 0u);
    ExpectNoOwner(JobOfNow());
}

TEST_F(DeviceSheetOfAPrinter, ChangesNothingByACancelledAuthentication) {
    Play(EnterAccount("suzuki", "secret", "keiri") + kOk + EnterAccount("tanaka", "other", "eigyo") +
         Check(IDC_MODE_OFF) + kCancel + kSheetOk);
    EXPECT_EQ(PrinterNumber("ManageMethod"), 1u);
    EXPECT_EQ(UserText("JobOwnerName_User"), "suzuki");
    ExpectOwner(JobOfNow(), "suzuki", "secret", "keiri");
}

TEST_F(DeviceSheetOfAPrinter, StoresNothingOfAnAuthenticationThatWasNeverAccepted) {
    Play(EnterAccount("tanaka", "other", "eigyo") + kCancel + kSheetOk);
    EXPECT_EQ(PrinterNumber("ManageMethod"), std::nullopt);
    EXPECT_EQ(UserText("JobOwnerName_User"), std::nullopt);
    ExpectNoOwner(JobOfNow());
}

TEST_F(DeviceSheetOfAPrinter, StaysInTheDialogWhoseNameIsMissing) {
    Play(OpenAuthentication() + Check(IDC_MODE_ON) + Check(IDC_OWNER_SPECIFIED) + kOk +
         "expect message ユーザー名を入力してください。\nanswer ok\n" + Line("expect focus", IDC_USER_ID) +
         Enter(IDC_USER_ID, "suzuki") + kOk + kSheetOk);
    ExpectOwner(JobOfNow(), "suzuki", "", "");
}

TEST_F(DeviceSheetOfAPrinter, KeepsWhatItsDialogsStoredWhenItIsCancelled) {
    Play(EnterAccount("suzuki", "secret", "keiri") + kOk + OpenCommunication() +
         Enter(IDC_ADDRESS, "print-server") + Check(IDC_OLDER_PRINTER) + kOk + kSheetCancel);
    EXPECT_EQ(PrinterText("PrinterPortAddress"), "print-server");
    EXPECT_EQ(PrinterNumber("CommunicationMode"), 1u);
    ExpectOwner(JobOfNow(), "suzuki", "secret", "keiri");
}

TEST_F(DeviceSheetOfAPrinter, StoresTheAddressAndTheModeOfTheCommunication) {
    Play(kPage + OpenCommunication() + Enter(IDC_ADDRESS, "192.0.2.17") + Check(IDC_OLDER_PRINTER) + kOk +
         kSheetOk);
    EXPECT_EQ(PrinterText("PrinterPortAddress"), "192.0.2.17");
    EXPECT_EQ(PrinterNumber("CommunicationMode"), 1u);
    Play(OpenCommunication() + ExpectText(IDC_ADDRESS, "192.0.2.17") +
         ExpectChecked(IDC_OLDER_PRINTER, true) + kCancel + kSheetCancel);
}

TEST_F(DeviceSheetOfAPrinter, ChangesNothingByACancelledCommunication) {
    Play(OpenCommunication() + Enter(IDC_ADDRESS, "192.0.2.17") + kOk + OpenCommunication() +
         Enter(IDC_ADDRESS, "other-server") + Check(IDC_OLDER_PRINTER) + kCancel +
         ExpectEnabled(IDC_DEVICE_JOB_PROPERTIES) + kSheetOk);
    EXPECT_EQ(PrinterText("PrinterPortAddress"), "192.0.2.17");
    EXPECT_EQ(PrinterNumber("CommunicationMode"), 0u);
}

TEST_F(DeviceSheetOfAPrinter, StaysInTheDialogWhoseAddressIsNone) {
    Play(
        OpenCommunication() + Enter(IDC_ADDRESS, "fe80::1") + kOk +
        "expect message \"IPv6のアドレスは使用できません。\\nIPv4のアドレスまたはホスト名を入力してください。"
        "\"\nanswer ok\n" +
        Line("expect focus", IDC_ADDRESS) + Enter(IDC_ADDRESS, "print-server.example") + kOk + kSheetOk);
    EXPECT_EQ(PrinterText("PrinterPortAddress"), "print-server.example");
}

TEST_F(DeviceSheetOfAPrinter, LetsNoInformationBeFetchedWhileTheModeIsOn) {
    Play(ExpectEnabled(IDC_DEVICE_JOB_PROPERTIES) + OpenCommunication() + Check(IDC_OLDER_PRINTER) + kOk +
         ExpectEnabled(IDC_DEVICE_JOB_PROPERTIES, false) + kSheetOk);
    EXPECT_EQ(PrinterNumber("CommunicationMode"), 1u);
    Play(ExpectEnabled(IDC_DEVICE_JOB_PROPERTIES, false) + kSheetOk);
    EXPECT_EQ(PrinterNumber("CommunicationMode"), 1u);
    Play(ExpectEnabled(IDC_DEVICE_JOB_PROPERTIES, false) + OpenCommunication() +
         Check(IDC_OLDER_PRINTER, false) + kOk + ExpectEnabled(IDC_DEVICE_JOB_PROPERTIES) + kSheetOk);
    EXPECT_EQ(PrinterNumber("CommunicationMode"), 0u);
    Play(ExpectEnabled(IDC_DEVICE_JOB_PROPERTIES) + kSheetCancel);
}

// Only the application's command -file shows this hint.
TEST_F(DeviceSheetOfAPrinter, RunsTheApplicationForTheDefaultsUntilItEnds) {
    const std::string fetch =
        Line("click", IDC_DEVICE_JOB_PROPERTIES) + "expect running PrinterDriverApplication.exe 1\n" +
        ExpectText(kApplicationHint, "プリンターの既定値を表示しています。ここでの変更は保存されません。") +
        kCancel + "expect running PrinterDriverApplication.exe 0\n" +
        ExpectEnabled(IDC_DEVICE_JOB_PROPERTIES);
    Play("expect running PrinterDriverApplication.exe 0\n" + fetch + fetch + kSheetOk);
}

TEST_F(DeviceSheetOfAPrinter, CanBeWorkedOnByTheKeyboardAlone) {
    const std::string tab = "key tab\n";
    const std::string space = "key space\n";
    Play(Line("expect focus", IDC_DEVICE_AUTHENTICATION) + space + Line("expect focus", IDC_MODE_OFF) +
         "key down\n" + ExpectChecked(IDC_MODE_ON, true) + "key enter\n" +
         Line("expect focus", IDC_DEVICE_AUTHENTICATION) + tab +
         Line("expect focus", IDC_DEVICE_COMMUNICATION) + space + Line("expect focus", IDC_ADDRESS) +
         Enter(IDC_ADDRESS, "print-server") + tab + Line("expect focus", IDC_OLDER_PRINTER) + space +
         ExpectChecked(IDC_OLDER_PRINTER, true) + "key escape\n" +
         Line("expect focus", IDC_DEVICE_COMMUNICATION) + tab +
         Line("expect focus", IDC_DEVICE_JOB_PROPERTIES) + "key escape\n");
    EXPECT_EQ(PrinterNumber("ManageMethod"), 1u);
    EXPECT_EQ(PrinterText("PrinterPortAddress"), std::nullopt);
}

TEST_F(DeviceSheetOfAPrinter, ShowsTheModeOnlyWithoutThePermission) {
    Play(OpenAuthentication() + Check(IDC_MODE_ON) + kOk + kSheetOk);
    EXPECT_EQ(PlayReadOnly(kPage + OpenAuthentication() + ExpectChecked(IDC_MODE_ON, true) +
                           ExpectEnabled(IDC_MODE_OFF, false) + ExpectEnabled(IDC_MODE_ON, false) +
                           ExpectText(IDC_MODE_NOTE, "認証の方法を変更する権限がありません。") +
                           Check(IDC_OWNER_SPECIFIED) + Enter(IDC_USER_ID, "suzuki") + kOk + kSheetOk),
              "");
    EXPECT_EQ(PrinterNumber("ManageMethod"), 1u);
    ExpectOwner(JobOfNow(), "suzuki", "", "");
}

TEST_F(DeviceSheetOfAPrinter, LosesTheAccountWithThePrinter) {
    Play(EnterAccount("suzuki", "secret", "keiri") + kOk + kSheetOk);
    ASSERT_TRUE(UserText("JobOwnerNamePassword_User"));
    EXPECT_EQ(RunDriverhost({L"--remove", L"--printer", kWideName}).status, 0u);
    EXPECT_EQ(UserText("JobOwnerNamePassword_User"), std::nullopt);
}

TEST(DeviceSheetPictures, AreTaken) {
    const ProgramResult result =
        RunDriverhost({L"--device", L"--script", ScriptFile(L"pictures_device.txt")});
    EXPECT_EQ(result.status, 0u);
    EXPECT_EQ(result.output, "");
    ClearPrinter();
}

} // namespace
