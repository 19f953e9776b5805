// The user's connections to printers in a registry of the test's own.
#include "oemps/printer_connections.h"

#include "tests/support/main_log.h"
#include "tests/support/registry_override.h"

#include <gtest/gtest.h>

#include <array>
#include <string>

namespace {

class GuidPrinter : public testing::Test {
  protected:
    static std::string Read() {
        std::array<char, 256> out;
        out.fill('x');
        GetGuidPrinter(kKey, out);
        return out.data();
    }
    static void Write(const std::string& bytes, DWORD type = REG_BINARY) {
        const std::string data = bytes + 'x';
        EXPECT_EQ(RegSetKeyValueA(HKEY_CURRENT_USER, kKey, "GuidPrinter", type, data.data(),
                                  static_cast<DWORD>(bytes.size())),
                  0);
    }

    static constexpr char kKey[] = "Printers\\Connections\\,,server,Orvane";
    const RegistryOverride user{HKEY_CURRENT_USER};
};

TEST_F(GuidPrinter, OfAMissingKeyIsEmptyAndTheKeyIsMade) {
    EXPECT_EQ(Read(), "");
    EXPECT_TRUE(user.Has(kKey));
}

TEST_F(GuidPrinter, OfAnyTypeIsTakenAsTextWithAndWithoutItsNul) {
    for (const DWORD type : {REG_SZ, REG_EXPAND_SZ, REG_BINARY, REG_DWORD, REG_MULTI_SZ}) {
        Write("{12}", type);
        EXPECT_EQ(Read(), "{12}") << type;
        Write(std::string("{1}\0{2}", 7), type);
        EXPECT_EQ(Read(), "{1}") << type;
    }
}

TEST_F(GuidPrinter, OfNoBytesIsEmpty) {
    Write("");
    EXPECT_EQ(Read(), "");
}

TEST_F(GuidPrinter, OfUpTo255BytesIsTakenWhole) {
    const std::string longest(255, 'g');
    for (const std::string& bytes : {longest, longest + '\0'}) {
        Write(bytes);
        EXPECT_EQ(Read(), longest) << bytes.size();
    }
}

// A part of it would be the id of another printer.
TEST_F(GuidPrinter, ThatDoesNotFitWithItsNulIsEmptyAndNotCut) {
    for (const std::string& bytes : {std::string(256, 'g'), std::string(256, 'g') + '\0',
                                     std::string(257, 'g'), std::string(1 << 20, 'g')}) {
        Write(bytes);
        EXPECT_EQ(Read(), "") << bytes.size();
    }
}

TEST_F(GuidPrinter, ThatCantBeReadIsLoggedWithItsStatus) {
    MainLog log;
    Read();
    EXPECT_TRUE(log.HasLogged("GuidPrinter of Printers\\Connections\\,,server,Orvane, status=2"));
    for (const std::size_t size : {256, 257, 300}) {
        Write(std::string(size, 'g'));
        log.Forget();
        Read();
        EXPECT_TRUE(log.HasLogged("GuidPrinter of Printers\\Connections\\,,server,Orvane, status=234"))
            << size;
    }
}

TEST_F(GuidPrinter, ThatCanBeReadLeavesNoLineButThatOfTheEntry) {
    const MainLog log;
    Write("{1}");
    Read();
    EXPECT_EQ(log.Messages().size(), 1u);
}

} // namespace
