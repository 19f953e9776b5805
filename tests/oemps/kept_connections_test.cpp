// Which list of the user's connections is given again, and what makes it a new one. A list that is given
// again is the same object.
#include "oemps/printer_connections.h"
#include "oemps/printer_event.h"
#include "tests/Common/short_memory.h"
#include "tests/support/handle_count.h"
#include "tests/support/main_log.h"
#include "tests/support/registry_override.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <atomic>
#include <memory>
#include <new>
#include <string>
#include <thread>
#include <vector>

namespace {

using Names = std::vector<std::string>;

class ConnectionsKept : public testing::Test {
  protected:
    ConnectionsKept() {
        Add("a");
        Add("b");
    }

    void SetUp() override {
        ASSERT_EQ(GetFileAttributesA("C:\\qpsp\\Log"), INVALID_FILE_ATTRIBUTES)
            << "where there is a log, nothing is kept";
    }

    static ConnectionNames List() { return KeptConnections(kConnectionsKey); }
    // Without this, a change of a list that isn't kept would prove nothing.
    static void ExpectKept() { EXPECT_EQ(List(), List()); }

    static std::string PathOf(const std::string& name) { return kConnectionsKey + ("\\" + name); }
    static void Add(const std::string& name) {
        HKEY key = nullptr;
        EXPECT_EQ(RegCreateKeyExA(HKEY_CURRENT_USER, PathOf(name).c_str(), 0, nullptr,
                                  REG_OPTION_NON_VOLATILE, KEY_ALL_ACCESS, nullptr, &key, nullptr),
                  0);
        RegCloseKey(key);
    }
    static void Remove(const std::string& name) {
        EXPECT_EQ(RegDeleteKeyA(HKEY_CURRENT_USER, PathOf(name).c_str()), 0);
    }
    static void Rename(const char* name, const wchar_t* newName) {
        const auto rename = reinterpret_cast<LSTATUS(WINAPI*)(HKEY, const wchar_t*, const wchar_t*)>(
            reinterpret_cast<void*>(GetProcAddress(GetModuleHandleA("advapi32.dll"), "RegRenameKey")));
        ASSERT_TRUE(rename);
        HKEY key = nullptr;
        EXPECT_EQ(RegOpenKeyExA(HKEY_CURRENT_USER, PathOf(name).c_str(), 0, KEY_ALL_ACCESS, &key), 0);
        EXPECT_EQ(rename(key, nullptr, newName), 0);
        RegCloseKey(key);
    }

    const RegistryOverride user{HKEY_CURRENT_USER};
};

TEST_F(ConnectionsKept, AreGivenAgainWhileNothingChanges) {
    const ConnectionNames first = List();
    EXPECT_EQ(*first, (Names{"a", "b"}));
    EXPECT_EQ(List(), first);
    EXPECT_EQ(List(), first);
}

TEST_F(ConnectionsKept, HaveOneThatIsAdded) {
    ExpectKept();
    Add("c");
    EXPECT_EQ(*List(), (Names{"a", "b", "c"}));
    ExpectKept();
}

TEST_F(ConnectionsKept, HaveNotOneThatIsRemoved) {
    ExpectKept();
    Remove("a");
    EXPECT_EQ(*List(), Names{"b"});
    ExpectKept();
}

// Neither the count of names nor, under Wine, the key's last write time tells of that.
TEST_F(ConnectionsKept, HaveTheNewNameOfOneThatIsRenamed) {
    ExpectKept();
    Rename("a", L"z");
    Names names = *List();
    std::ranges::sort(names);
    EXPECT_EQ(names, (Names{"b", "z"}));
    ExpectKept();
}

// However close together: time stamps would tell two changes of one tick for one.
TEST_F(ConnectionsKept, HaveTheOneThatTakesTheRemovedOnesPlaceAtOnce) {
    std::string last = "b";
    for (int i = 0; i < 50; ++i) {
        ExpectKept();
        Remove(last);
        last = "c" + std::to_string(i);
        Add(last);
        EXPECT_EQ(*List(), (Names{"a", last}));
    }
}

TEST_F(ConnectionsKept, AreThoseOfAKeyThatIsRemovedAndMadeAgain) {
    ExpectKept();
    EXPECT_EQ(RegDeleteTreeA(HKEY_CURRENT_USER, kConnectionsKey), 0);
    EXPECT_EQ(*List(), Names{});
    Add("x");
    Add("y");
    EXPECT_EQ(*List(), (Names{"x", "y"}));
    ExpectKept();
}

// An empty key that is removed tells its own watchers nothing under Wine.
TEST_F(ConnectionsKept, OfNoNamesAreThoseOfTheKeyInItsPlace) {
    Remove("a");
    Remove("b");
    ExpectKept();
    EXPECT_EQ(RegDeleteKeyA(HKEY_CURRENT_USER, kConnectionsKey), 0);
    Add("x");
    EXPECT_EQ(*List(), Names{"x"});
}

TEST_F(ConnectionsKept, OfAKeyThatIsNotThereAreNone) {
    ExpectKept();
    EXPECT_EQ(RegDeleteTreeA(HKEY_CURRENT_USER, kConnectionsKey), 0);
    EXPECT_EQ(*List(), Names{});
}

TEST_F(ConnectionsKept, AreThoseOfTheKeyThatIsAskedFor) {
    user.AddKey("Elsewhere\\e");
    for (int i = 0; i < 3; ++i) {
        EXPECT_EQ(*List(), (Names{"a", "b"}));
        EXPECT_EQ(*KeptConnections("Elsewhere"), Names{"e"});
    }
}

// In the spooler's process, where the events run, an open key would keep the user's profile from being
// unloaded.
TEST_F(ConnectionsKept, AreNotThoseThatTheEventsAskFor) {
    user.AddKey("Elsewhere\\e");
    const ConnectionNames kept = KeptConnections("Elsewhere");
    std::array<char, kKeyNameSize> key{};
    GetAuthenticatInfo("a", key);
    EXPECT_EQ(KeptConnections("Elsewhere"), kept);
    GetClientAuthenticatInfo("\\{1}", key);
    EXPECT_EQ(KeptConnections("Elsewhere"), kept);
}

// HKEY_CURRENT_USER is another key for another user, with the same path below it.
TEST_F(ConnectionsKept, AreThoseOfThePresentUser) {
    user.AddKey("First user\\Printers\\Connections\\f");
    user.AddKey("Second user\\Printers\\Connections\\s");
    HKEY first = nullptr;
    HKEY second = nullptr;
    RegOpenKeyExA(HKEY_CURRENT_USER, "First user", 0, KEY_ALL_ACCESS, &first);
    RegOpenKeyExA(HKEY_CURRENT_USER, "Second user", 0, KEY_ALL_ACCESS, &second);
    for (int i = 0; i < 2; ++i) {
        RegOverridePredefKey(HKEY_CURRENT_USER, first);
        EXPECT_EQ(*List(), Names{"f"});
        ExpectKept();
        RegOverridePredefKey(HKEY_CURRENT_USER, second);
        EXPECT_EQ(*List(), Names{"s"});
        ExpectKept();
    }
    RegCloseKey(second);
    RegCloseKey(first);
}

TEST_F(ConnectionsKept, StayWhenAValueOfOneChanges) {
    const ConnectionNames first = List();
    user.AddText(PathOf("a").c_str(), "GuidPrinter", "{1}");
    EXPECT_EQ(List(), first);
    std::array<char, 256> guid{};
    GetGuidPrinter(PathOf("a").c_str(), guid);
    EXPECT_STREQ(guid.data(), "{1}");
    user.AddText(PathOf("a").c_str(), "GuidPrinter", "{2}");
    GetGuidPrinter(PathOf("a").c_str(), guid);
    EXPECT_STREQ(guid.data(), "{2}");
}

TEST_F(ConnectionsKept, AreEnumeratedAndLoggedEachTimeOnceThereIsALog) {
    ExpectKept();
    MainLog log;
    for (int i = 0; i < 2; ++i) {
        log.Forget();
        EXPECT_EQ(*List(), (Names{"a", "b"}));
        const auto messages = log.Messages();
        ASSERT_EQ(messages.size(), 2u);
        EXPECT_EQ(messages[0].rfind("SubkeyName: a, LastWriteTime: ", 0), 0u);
        EXPECT_EQ(messages[1].rfind("SubkeyName: b, LastWriteTime: ", 0), 0u);
    }
}

TEST_F(ConnectionsKept, FromBeforeALogAreNotThoseFromBehindIt) {
    ExpectKept();
    {
        const MainLog log;
        Add("c");
        EXPECT_EQ(*List(), (Names{"a", "b", "c"}));
    }
    EXPECT_EQ(*List(), (Names{"a", "b", "c"}));
    ExpectKept();
}

TEST_F(ConnectionsKept, AreAtMost1000) {
    for (int i = 2; i < 1000; ++i)
        Add("n" + std::to_string(i));
    EXPECT_EQ(List()->size(), 1000u);
    ExpectKept();
    Add("o");
    EXPECT_EQ(List()->size(), 1001u);
    EXPECT_NE(List(), List());
    Remove("o");
    EXPECT_EQ(List()->size(), 1000u);
    ExpectKept();
}

TEST_F(ConnectionsKept, HoldNoMoreHandlesTheMoreOftenTheyChange) {
    ExpectKept();
    const int before = CountHandles();
    for (int i = 0; i < 20; ++i) {
        Add("c");
        ExpectKept();
        Remove("c");
        ExpectKept();
        KeptConnections("Printers");
    }
    ExpectKept();
    EXPECT_EQ(CountHandles(), before);
}

TEST_F(ConnectionsKept, AreWholeAfterMemoryEndedAnywhere) {
    bool isEnough = false;
    for (std::size_t allocations = 0; !isEnough; ++allocations) {
        ASSERT_LT(allocations, 60u);
        ExpectKept();
        const bool hasThird = allocations % 2 == 0;
        if (hasThird)
            Add("c");
        else
            Remove("c");
        try {
            const ShortMemory memory(allocations);
            List();
            isEnough = true;
        } catch (const std::bad_alloc&) {
        }
        EXPECT_EQ(*List(), (hasThird ? Names{"a", "b", "c"} : Names{"a", "b"})) << allocations;
    }
    ExpectKept();
}

TEST_F(ConnectionsKept, HaveOneThatIsAddedInFrontWhileTheyAreEnumerated) {
    for (int i = 0; i < 100; ++i)
        Add("n" + std::to_string(i));
    for (int i = 999; i > 950; --i) {
        Add("z" + std::to_string(i));
        const std::string added = "m" + std::to_string(i);
        std::thread meanwhile([&] { Add(added); });
        List();
        meanwhile.join();
        const ConnectionNames names = List();
        EXPECT_TRUE(std::ranges::find(*names, added) != names->end()) << added;
    }
}

// The watch may end with the thread that set it.
TEST_F(ConnectionsKept, OfAThreadThatHasEndedHaveTheOneThatIsAddedThereafter) {
    ConnectionNames kept;
    std::thread([&] { kept = List(); }).join();
    EXPECT_EQ(*kept, (Names{"a", "b"}));
    Add("c");
    EXPECT_EQ(*List(), (Names{"a", "b", "c"}));
}

// Under Wine each thread sees all that was changed before it asked.
TEST_F(ConnectionsKept, OfSeveralThreadsLackNothingThatWasThere) {
    constexpr int kRounds = 100;
    std::atomic<int> added = 0;
    std::atomic<int> stale = 0;
    const auto search = [&] {
        for (int known = 0; known < kRounds;) {
            known = added;
            const ConnectionNames names = List();
            for (int i = 0; i < known; ++i)
                stale += std::ranges::find(*names, "t" + std::to_string(i)) == names->end() ? 1 : 0;
        }
    };
    std::thread first(search);
    std::thread second(search);
    for (int i = 0; i < kRounds; ++i) {
        Add("t" + std::to_string(i));
        ++added;
    }
    first.join();
    second.join();
    EXPECT_EQ(stale, 0);
}

} // namespace
