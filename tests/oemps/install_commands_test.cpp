// What is run when the driver is installed or removed.
#include "oemps/install_commands.h"

#include <gtest/gtest.h>

using Commands = std::array<std::string, 4>;

TEST(JobPropertyPath, IsThatOf64BitMachinesIfTheTextsAreEqual) {
    EXPECT_EQ(JobPropertyPath("AMD64", "AMD64"), "\\System32\\spool\\drivers\\ZR_ORKPN01_300_PDF_JPN_x64");
    EXPECT_EQ(JobPropertyPath("", ""), "\\System32\\spool\\drivers\\ZR_ORKPN01_300_PDF_JPN_x64");
}

TEST(JobPropertyPath, IsThatOf32BitMachinesOtherwise) {
    for (const char* processor : {"x86", "", "amd64", "AMD6", "AMD644", "IA64", "ARM64"})
        EXPECT_EQ(JobPropertyPath(processor, "AMD64"),
                  "\\System32\\spool\\drivers\\ZR_ORKPN01_300_PDF_JPN_x86")
            << processor;
}

TEST(OtherArchitecture, PutsX86InThePlaceOfX64) {
    EXPECT_EQ(OtherArchitecture("C:\\Windows\\a_x64"), "C:\\Windows\\a_x86");
}

TEST(OtherArchitecture, PutsX64InThePlaceOfAllElse) {
    EXPECT_EQ(OtherArchitecture("C:\\Windows\\a_x86"), "C:\\Windows\\a_x64");
    EXPECT_EQ(OtherArchitecture("C:\\Windows\\a_X64"), "C:\\Windows\\a_x64");
    EXPECT_EQ(OtherArchitecture("C:\\Windows\\abc"), "C:\\Windows\\x64");
}

TEST(OtherArchitecture, OfLessThanThreeCharactersReplacesThem) {
    EXPECT_EQ(OtherArchitecture(""), "x64");
    EXPECT_EQ(OtherArchitecture("ab"), "x64");
    EXPECT_EQ(OtherArchitecture("x64"), "x86");
}

TEST(NgenCommands, InstallTheFourAssembliesInOrder) {
    EXPECT_EQ(NgenCommands(true, "AMD64", "C:\\Windows"),
              (Commands{"C:\\Windows\\Microsoft.NET\\Framework64\\v4.0.30319\\ngen.exe install "
                        "C:\\Windows\\System32\\spool\\drivers\\ZR_ORKPN01_300_PDF_JPN_x64"
                        "\\PrinterDriverApplication.exe",
                        "C:\\Windows\\Microsoft.NET\\Framework64\\v4.0.30319\\ngen.exe install "
                        "C:\\Windows\\System32\\spool\\drivers\\ZR_ORKPN01_300_PDF_JPN_x64"
                        "\\PS.Services.XmlSerializers.dll",
                        "C:\\Windows\\Microsoft.NET\\Framework64\\v4.0.30319\\ngen.exe install "
                        "C:\\Windows\\System32\\spool\\drivers\\ZR_ORKPN01_300_PDF_JPN_x64"
                        "\\Microsoft.Expression.Drawing.dll",
                        "C:\\Windows\\Microsoft.NET\\Framework64\\v4.0.30319\\ngen.exe install "
                        "C:\\Windows\\System32\\spool\\drivers\\ZR_ORKPN01_300_PDF_JPN_x64"
                        "\\Microsoft.Expression.Interactions.dll"}));
}

TEST(NgenCommands, OfAnotherArchitectureHaveItsToolAndItsDirectory) {
    EXPECT_EQ(NgenCommands(false, "x86", "D:\\WinNT"),
              (Commands{"D:\\WinNT\\Microsoft.NET\\Framework\\v4.0.30319\\ngen.exe uninstall "
                        "D:\\WinNT\\System32\\spool\\drivers\\ZR_ORKPN01_300_PDF_JPN_x86"
                        "\\PrinterDriverApplication.exe",
                        "D:\\WinNT\\Microsoft.NET\\Framework\\v4.0.30319\\ngen.exe uninstall "
                        "D:\\WinNT\\System32\\spool\\drivers\\ZR_ORKPN01_300_PDF_JPN_x86"
                        "\\PS.Services.XmlSerializers.dll",
                        "D:\\WinNT\\Microsoft.NET\\Framework\\v4.0.30319\\ngen.exe uninstall "
                        "D:\\WinNT\\System32\\spool\\drivers\\ZR_ORKPN01_300_PDF_JPN_x86"
                        "\\Microsoft.Expression.Drawing.dll",
                        "D:\\WinNT\\Microsoft.NET\\Framework\\v4.0.30319\\ngen.exe uninstall "
                        "D:\\WinNT\\System32\\spool\\drivers\\ZR_ORKPN01_300_PDF_JPN_x86"
                        "\\Microsoft.Expression.Interactions.dll"}));
}

TEST(NgenCommands, WithoutAWindowsDirectoryBeginWithTheirBackslashes) {
    EXPECT_EQ(NgenCommands(true, "AMD64", "")[0],
              "\\Microsoft.NET\\Framework64\\v4.0.30319\\ngen.exe install "
              "\\System32\\spool\\drivers\\ZR_ORKPN01_300_PDF_JPN_x64\\PrinterDriverApplication.exe");
}

TEST(NgenCommands, QuoteNothing) {
    EXPECT_EQ(NgenCommands(true, "AMD64", "C:\\My Windows")[0],
              "C:\\My Windows\\Microsoft.NET\\Framework64\\v4.0.30319\\ngen.exe install "
              "C:\\My Windows\\System32\\spool\\drivers\\ZR_ORKPN01_300_PDF_JPN_x64"
              "\\PrinterDriverApplication.exe");
}

TEST(NgenCommands, AreNotCut) {
    EXPECT_EQ(NgenCommands(true, "AMD64", std::string(3000, 'w'))[3].size(),
              6000 + std::string("\\Microsoft.NET\\Framework64\\v4.0.30319\\ngen.exe install "
                                 "\\System32\\spool\\drivers\\ZR_ORKPN01_300_PDF_JPN_x64"
                                 "\\Microsoft.Expression.Interactions.dll")
                         .size());
}
