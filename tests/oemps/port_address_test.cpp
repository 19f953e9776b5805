// What a port's values make of the address, with a key that does whatever a registry may do.
#include "oemps/port_address.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <map>
#include <string>

namespace {

// Values by name; those whose names stand in `unreadable` tell their size only.
struct Port {
    std::map<std::string, std::string> values;
    std::string unreadable = "";
};

class ToldPortKey final : public PortKey {
  public:
    explicit ToldPortKey(const Port& port) : m_port(port) {}

    std::optional<std::uint32_t> SizeOf(const std::string& value) override {
        const auto found = m_port.values.find(value);
        if (found == m_port.values.end())
            return std::nullopt;
        return static_cast<std::uint32_t>(found->second.size());
    }
    bool Read(const std::string& value, std::span<char> bytes) override {
        if (m_port.unreadable.find(value) != std::string::npos)
            return false;
        std::ranges::copy(m_port.values.at(value), bytes.begin());
        return true;
    }

  private:
    const Port& m_port;
};

// 'x' where nothing was written.
struct Answer {
    int result;
    std::array<char, 128> out;

    std::string Text() const { return out.data(); }
};

Answer Ask(const Port& port, const std::string& name = "IP_10.0.0.9") {
    Answer answer{};
    answer.out.fill('x');
    ToldPortKey key(port);
    answer.result = AddressOfPort(key, name, answer.out);
    return answer;
}

const std::string kNul(1, '\0');

TEST(AddressOfAPort, IsItsHostName) {
    const Answer answer =
        Ask({.values = {{"HostName", "rip-server" + kNul}, {"IPAddress", "10.0.0.1" + kNul}}});
    EXPECT_EQ(answer.result, 1);
    EXPECT_EQ(answer.Text(), "rip-server");
}

TEST(AddressOfAPort, IsTheIpAddressWhereTheHostNameIsEmpty) {
    for (const std::string& hostName : {kNul, std::string(), kNul + "behind"}) {
        const Answer answer = Ask({.values = {{"HostName", hostName}, {"IPAddress", "10.0.0.1" + kNul}}});
        EXPECT_EQ(answer.result, 1);
        EXPECT_EQ(answer.Text(), "10.0.0.1");
    }
}

TEST(AddressOfAPort, IsThisMachineForAnEmptyHostNameAndNoIpAddress) {
    const Answer answer = Ask({.values = {{"HostName", kNul}}});
    EXPECT_EQ(answer.result, 1);
    EXPECT_EQ(answer.Text(), "127.0.0.1");
}

TEST(AddressOfAPort, IsEmptyWhereBothAreEmpty) {
    const Answer answer = Ask({.values = {{"HostName", kNul}, {"IPAddress", kNul}}});
    EXPECT_EQ(answer.result, 1);
    EXPECT_EQ(answer.Text(), "");
}

TEST(AddressOfAPort, IsThePortsNameWithoutAHostNameEvenIfThereIsAnIpAddress) {
    for (const auto& values : {std::map<std::string, std::string>{}, {{"IPAddress", "10.0.0.1" + kNul}}}) {
        const Answer answer = Ask({.values = values});
        EXPECT_EQ(answer.result, 1);
        EXPECT_EQ(answer.Text(), "IP_10.0.0.9");
    }
}

TEST(AddressOfAPort, GoesOnAfterAFailedReadOfTheHostNameAndStillFails) {
    const Answer answer =
        Ask({.values = {{"HostName", "rip-server" + kNul}, {"IPAddress", "10.0.0.1" + kNul}},
             .unreadable = "HostName"});
    EXPECT_EQ(answer.result, 0);
    EXPECT_EQ(answer.Text(), "10.0.0.1");
}

TEST(AddressOfAPort, FailsWhereTheIpAddressCantBeRead) {
    const Answer answer =
        Ask({.values = {{"HostName", kNul}, {"IPAddress", "10.0.0.1" + kNul}}, .unreadable = "IPAddress"});
    EXPECT_EQ(answer.result, 0);
    EXPECT_EQ(answer.Text(), "");
}

TEST(AddressOfAPort, FailsWhereNeitherCanBeRead) {
    const Answer answer =
        Ask({.values = {{"HostName", "rip-server" + kNul}, {"IPAddress", "10.0.0.1" + kNul}},
             .unreadable = "HostName IPAddress"});
    EXPECT_EQ(answer.result, 0);
    EXPECT_EQ(answer.Text(), "");
}

// The missing IP address counts for more than the host's name that could not be read.
TEST(AddressOfAPort, IsThisMachineAfterAFailedReadOfTheHostNameWithoutAnIpAddress) {
    const Answer answer = Ask({.values = {{"HostName", "rip-server" + kNul}}, .unreadable = "HostName"});
    EXPECT_EQ(answer.result, 1);
    EXPECT_EQ(answer.Text(), "127.0.0.1");
}

TEST(AddressOfAPort, NeedsNoNulAndEndsAtTheFirst) {
    EXPECT_EQ(Ask({.values = {{"HostName", "rip-server"}}}).Text(), "rip-server");
    EXPECT_EQ(Ask({.values = {{"HostName", "rip" + kNul + "server"}}}).Text(), "rip");
}

TEST(AddressOfAPort, IsCutAt127Bytes) {
    const Answer whole = Ask({.values = {{"HostName", std::string(127, 'a') + kNul}}});
    EXPECT_EQ(whole.Text(), std::string(127, 'a'));
    for (const std::size_t length : {128u, 129u, 1u << 20}) {
        const Answer hostName = Ask({.values = {{"HostName", std::string(length, 'a')}}});
        EXPECT_EQ(hostName.result, 1);
        EXPECT_EQ(hostName.Text(), std::string(127, 'a')) << length;
        const Answer address = Ask({.values = {{"HostName", ""}, {"IPAddress", std::string(length, '1')}}});
        EXPECT_EQ(address.Text(), std::string(127, '1')) << length;
        EXPECT_EQ(Ask(Port(), std::string(length, 'p')).Text(), std::string(127, 'p')) << length;
    }
}

TEST(AddressOfAPort, IsNeverCutInsideADoubleByteCharacter) {
    std::string doubles;
    for (int i = 0; i < 63; ++i)
        doubles += "表";
    EXPECT_EQ(Ask({.values = {{"HostName", doubles + "表"}}}).Text(), doubles);
    EXPECT_EQ(Ask({.values = {{"HostName", ""}, {"IPAddress", doubles + "表"}}}).Text(), doubles);
    EXPECT_EQ(Ask(Port(), doubles + "表").Text(), doubles);
}

TEST(PathOfAPortsKey, IsThatOfTheMonitorAndThePortsName) {
    EXPECT_EQ(PortKeyPath("IP_10.0.0.1"),
              "SYSTEM\\ControlSet001\\Control\\Print\\Monitors\\Standard TCP/IP Port\\Ports\\IP_10.0.0.1");
}

TEST(PathOfAPortsKey, HasAtMost259Bytes) {
    const std::size_t room = 259 - PortKeyPath("").value().size();
    EXPECT_EQ(PortKeyPath(std::string(room, 'p')).value().size(), 259u);
    EXPECT_EQ(PortKeyPath(std::string(room + 1, 'p')), std::nullopt);
    EXPECT_EQ(PortKeyPath(std::string(1000, 'p')), std::nullopt);
}

} // namespace
