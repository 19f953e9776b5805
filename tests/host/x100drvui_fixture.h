// A folder with the configuration module, a small description and the test plug-in, as the spooler's driver
// folder would hold them, and the module loaded from there.
#pragma once

#include "host/driver_devmode.h"
#include "host/module_function.h"
#include "host/x100drvui.h"
#include "test_plugin.h"
#include "tests/support/file_contents.h"
#include "tests/support/own_folder.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <string>
#include <vector>

class X100DrvUiTest : public ::testing::Test {
  protected:
    void SetUp() override {
        m_folder =
            std::filesystem::temp_directory_path() / (L"x100drvui" + std::to_wstring(GetCurrentProcessId()));
        std::filesystem::create_directories(m_folder);
        CopyBeside(L"x100drvui.dll", L"x100drvui.dll");
        CopyBeside(L"test_plugin.dll", L"test_plugin.dll");
        WriteDescription(SmallPpd());
        WriteText(L"x100.ini", "[OEMFiles]\r\nOEMConfigFile1=test_plugin.dll\r\n");
        m_module = LoadLibraryW((m_folder / L"x100drvui.dll").c_str());
        m_plugin = LoadLibraryW((m_folder / L"test_plugin.dll").c_str());
        ASSERT_TRUE(m_module && m_plugin) << GetLastError();
        ForgetCalls();
    }

    void TearDown() override {
        FreeLibrary(m_plugin);
        FreeLibrary(m_module);
        std::error_code error;
        std::filesystem::remove_all(m_folder, error);
    }

    void WriteText(const wchar_t* name, const std::string& text) {
        std::ofstream(m_folder / name, std::ios::binary) << text;
    }
    void WriteDescription(const std::string& text) { WriteText(L"x100.ppd", text); }

    std::string Calls() const { return FunctionOf<PFNTESTPLUGINCALLS>(m_plugin, "TestPluginCalls")(); }

    void ForgetCalls() { m_hooks = FunctionOf<PFNTESTPLUGINCONTROL>(m_plugin, "TestPluginControl")(); }

    std::wstring Message() const {
        std::wstring text(512, L'\0');
        text.resize(FunctionOf<PFNX100GETLASTMESSAGE>(m_module, "X100GetLastMessage")(text.data(), 512));
        return text;
    }

    PFNDRVPROPERTYSHEETS DocumentFunction() const {
        return FunctionOf<PFNDRVPROPERTYSHEETS>(m_module, "DrvDocumentPropertySheets");
    }

    static DOCUMENTPROPERTYHEADER Header(DWORD mode, std::vector<std::byte>* in,
                                         std::vector<std::byte>* out) {
        DOCUMENTPROPERTYHEADER header{};
        header.cbSize = sizeof header;
        header.fMode = mode;
        header.pdmIn = in ? reinterpret_cast<PDEVMODEW>(in->data()) : nullptr;
        header.pdmOut = out ? reinterpret_cast<PDEVMODEW>(out->data()) : nullptr;
        header.cbOut = out ? static_cast<DWORD>(out->size()) : 0;
        return header;
    }

    LONG Size() const {
        DOCUMENTPROPERTYHEADER header = Header(0, nullptr, nullptr);
        return DocumentFunction()(nullptr, reinterpret_cast<LPARAM>(&header));
    }

    std::vector<std::byte> Default() const {
        std::vector<std::byte> devmode(static_cast<std::size_t>(std::max<LONG>(Size(), 0)));
        DOCUMENTPROPERTYHEADER header = Header(DM_OUT_BUFFER, nullptr, &devmode);
        EXPECT_EQ(DocumentFunction()(nullptr, reinterpret_cast<LPARAM>(&header)), IDOK);
        return devmode;
    }

    // Brings a caller's DEVMODE into a whole one, without a sheet: IDOK or -1.
    LONG TakeOver(std::vector<std::byte>& in, std::vector<std::byte>& out) const {
        DOCUMENTPROPERTYHEADER header = Header(DM_IN_BUFFER | DM_OUT_BUFFER, &in, &out);
        return DocumentFunction()(nullptr, reinterpret_cast<LPARAM>(&header));
    }

    // Opens the document sheet; its page presses a button by itself. Gives the sheet's result.
    DWORD OpenSheet(std::vector<std::byte>* in, std::vector<std::byte>& out, LONG* status = nullptr) const {
        DOCUMENTPROPERTYHEADER header =
            Header(DM_IN_PROMPT | DM_OUT_BUFFER | (in ? DM_IN_BUFFER : 0), in, &out);
        DWORD result = 0xCDCDCDCD;
        LONG answer =
            CommonPropertySheetUIW(nullptr, DocumentFunction(), reinterpret_cast<LPARAM>(&header), &result);
        if (status)
            *status = answer;
        return result;
    }

    static DEVMODEW& Public(std::vector<std::byte>& devmode) {
        return *reinterpret_cast<PDEVMODEW>(devmode.data());
    }
    static DriverArea& Area(std::vector<std::byte>& devmode) {
        return *reinterpret_cast<DriverArea*>(devmode.data() + kPublicSize);
    }
    static TestBlock& Block(std::vector<std::byte>& devmode) {
        return *reinterpret_cast<TestBlock*>(devmode.data() + devmode.size() - sizeof(TestBlock));
    }

    std::filesystem::path m_folder;
    HMODULE m_module = nullptr;
    HMODULE m_plugin = nullptr;
    TestPluginHooks* m_hooks = nullptr;

  private:
    void CopyBeside(const wchar_t* source, const wchar_t* target) {
        std::filesystem::copy_file(OwnFolder() / source, m_folder / target,
                                   std::filesystem::copy_options::overwrite_existing);
    }
};

class DocumentSheetTest : public X100DrvUiTest {};
