#include "companions/communication/address_form.h"

#include <gtest/gtest.h>

#include <string>

namespace {

struct Case {
    std::string address;
    AddressFault fault;
};

std::string Labels(std::size_t bytes, int count) {
    std::string name(bytes, 'a');
    for (int i = 1; i < count; ++i)
        name += "." + std::string(bytes, 'a');
    return name;
}

const Case kCases[] = {
    // none
    {"", AddressFault::None},
    // IPv4
    {"192.168.1.10", AddressFault::None},
    {"0.0.0.0", AddressFault::None},
    {"255.255.255.255", AddressFault::None},
    {"127.0.0.1", AddressFault::None},
    {"256.1.1.1", AddressFault::IpV4},
    {"1.1.1.256", AddressFault::IpV4},
    {"1.1.1.1000", AddressFault::IpV4},
    {"1.1.1.4294967297", AddressFault::IpV4},
    {"192.168.001.010", AddressFault::IpV4},
    {"00.0.0.0", AddressFault::IpV4},
    {"192.168.1", AddressFault::IpV4},
    {"192.168.1.1.1", AddressFault::IpV4},
    {"192.168.1.", AddressFault::IpV4},
    {".192.168.1.1", AddressFault::IpV4},
    {"192..168.1", AddressFault::IpV4},
    {"1", AddressFault::IpV4},
    {"2130706433", AddressFault::IpV4},
    {".", AddressFault::IpV4},
    {"...", AddressFault::IpV4},
    {"192.168.1.1:9100", AddressFault::Character},
    {"192.168.1.1/24", AddressFault::Character},
    {"-1.0.0.1", AddressFault::IpV4},
    // IPv6, which no folder name can have
    {"::1", AddressFault::IpV6},
    {"::", AddressFault::IpV6},
    {"fe80::1", AddressFault::IpV6},
    {"2001:DB8:0:0:8:800:200C:417A", AddressFault::IpV6},
    {"[2001:db8::1]", AddressFault::IpV6},
    {"::ffff:192.168.1.1", AddressFault::IpV6},
    {"fe80::1%eth0", AddressFault::IpV6},
    {"fe80::1%12", AddressFault::IpV6},
    {"fe80:1", AddressFault::Character},
    {"host::name", AddressFault::Character},
    {"%", AddressFault::Character},
    // host names
    {"localhost", AddressFault::None},
    {"a", AddressFault::None},
    {"print-server", AddressFault::None},
    {"PRINT-SERVER.Example.co.jp", AddressFault::None},
    {"3com", AddressFault::None},
    {"server-2", AddressFault::None},
    {"10.server", AddressFault::None},
    {"xn--fiq228c.jp", AddressFault::None},
    {"a--b", AddressFault::None},
    {"server.1", AddressFault::IpV4},
    {"a.b.c.1", AddressFault::IpV4},
    {"-server", AddressFault::Label},
    {"server-", AddressFault::Label},
    {"a.-b.c", AddressFault::Label},
    {"a.b-.c", AddressFault::Label},
    {"-", AddressFault::Label},
    {"server.", AddressFault::Label},
    {".server", AddressFault::Label},
    {"a..b", AddressFault::Label},
    {"print_server", AddressFault::None},
    {"PRINT_SV01", AddressFault::None},
    {"_a.b_", AddressFault::None},
    {"print server", AddressFault::Character},
    {" server", AddressFault::Character},
    {"server ", AddressFault::Character},
    {" ", AddressFault::Character},
    {"\\\\server", AddressFault::Character},
    {"http://server", AddressFault::Character},
    {"server:9100", AddressFault::Character},
    {"LPT1:", AddressFault::Character},
    {"..\\..\\windows", AddressFault::Character},
    {"a\"b", AddressFault::Character},
    {"server -x", AddressFault::Character},
    {"a*", AddressFault::Character},
    {"a%b", AddressFault::Character},
    // control and other characters
    {"server\t", AddressFault::Character},
    {"server\r\n", AddressFault::Character},
    {std::string("a\0b", 3), AddressFault::Character},
    {"a\x7F", AddressFault::Character},
    {"サーバー", AddressFault::Character},
    {"表", AddressFault::Character},
    {"server表", AddressFault::Character},
    {"１９２．１６８．１．１", AddressFault::Character},
    {"\xB1", AddressFault::Character}, // a half-width letter
    {"\xFF", AddressFault::Character},
    // lengths: 63 bytes of a part, 127 in all
    {std::string(63, 'a'), AddressFault::None},
    {std::string(64, 'a'), AddressFault::Label},
    {Labels(63, 2), AddressFault::None},
    {"a." + std::string(64, 'b') + ".c", AddressFault::Label},
    {Labels(62, 2) + ".a", AddressFault::None},
    {Labels(63, 2) + "a", AddressFault::TooLong},
    {Labels(41, 3) + ".a", AddressFault::None},
    {Labels(41, 3) + ".aa", AddressFault::TooLong},
    {std::string(1000000, 'a'), AddressFault::TooLong},
    {std::string(128, ':'), AddressFault::TooLong},
};

class AddressForm : public testing::TestWithParam<Case> {};

INSTANTIATE_TEST_SUITE_P(All, AddressForm, testing::ValuesIn(kCases));

TEST_P(AddressForm, IsJudged) {
    EXPECT_EQ(FaultOfAddress(GetParam().address), GetParam().fault) << GetParam().address.substr(0, 200);
}

// 127 bytes are 41 + 1 + 41 + 1 + 41 + 1 + 1.
TEST(AddressLength, IsCountedInTheCases) {
    EXPECT_EQ((Labels(41, 3) + ".a").size(), 127u);
    EXPECT_EQ(Labels(63, 2).size(), 127u);
}

TEST(EnteredAddress, LosesTheBlanksAroundIt) {
    EXPECT_EQ(WithoutBlanksAround(L" \t\u3000server\u3000 \t"), L"server");
    EXPECT_EQ(WithoutBlanksAround(L"print server"), L"print server");
    EXPECT_EQ(WithoutBlanksAround(L" \u3000"), L"");
    EXPECT_EQ(WithoutBlanksAround(L""), L"");
}

TEST(AddressLength, FitsTheBuffersOfItsReaders) {
    EXPECT_EQ(kMostAddressBytes, 127u);
}

} // namespace
