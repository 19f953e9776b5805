// Attacks invariants 16 to 18 of docs/security.md: the store is fed with a data setting key's content, with a
// whole key in another process's hands, and with texts and key names from outside. Whatever comes in, every
// text slot stays terminated and zero behind its text, and no name outside the store's parents is accepted.
#include "Common/text.h"
#include "datamanager/key_names.h"
#include "datamanager/store.h"

#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <memory>
#include <new>
#include <span>
#include <string>
#include <string_view>

namespace {

class Input {
  public:
    Input(const std::uint8_t* data, std::size_t size) : m_rest(reinterpret_cast<const char*>(data), size) {}

    bool IsEmpty() const { return m_rest.empty(); }
    std::uint8_t Byte() {
        const std::string_view byte = Bytes(1);
        return byte.empty() ? 0 : static_cast<std::uint8_t>(byte[0]);
    }
    std::string_view Bytes(std::size_t count) {
        const std::string_view bytes = m_rest.substr(0, count);
        m_rest.remove_prefix(bytes.size());
        return bytes;
    }

  private:
    std::string_view m_rest;
};

// A name of the tables more often than not.
std::string_view NameFrom(Input& input, Section section) {
    const std::size_t pick = input.Byte() + 256u * (input.Byte() & 1u);
    if (section == Section::Values)
        return pick < kValueRows.size() ? std::string_view(kValueRows[pick].name) : input.Bytes(pick % 40);
    return pick < kKeywordNames.size() ? std::string_view(kKeywordNames[pick]) : input.Bytes(pick % 40);
}

void CheckTexts(NamedValues& values) {
    for (const ValueRow& row : kValueRows) {
        if (row.type != ValueType::Text)
            continue;
        const auto slot = SlotOf(values, row);
        const std::size_t length =
            FieldText({reinterpret_cast<const char*>(slot.data()), slot.size()}).size();
        if (length >= slot.size() ||
            std::ranges::any_of(slot.subspan(length), [](std::byte b) { return b != std::byte{}; }))
            std::abort();
    }
}

void LoadKey(Input& input) {
    const auto values = std::make_unique<StoredValues>();
    while (!input.IsEmpty()) {
        const auto section = static_cast<Section>(input.Byte() % kSectionNames.size());
        const std::string_view name = NameFrom(input, section);
        const std::uint32_t type = input.Byte();
        const std::string_view data = input.Bytes(input.Byte() * 8u + (input.Byte() & 7u));
        TakeKeyValue(*values, section, name, type, std::as_bytes(std::span(data)));
    }
    CheckTexts(values->named);
}

// A key of which everything is decided by the input: what its values are, whether they stand still, and what
// goes wrong when.
class HostileKey : public SettingKey {
  public:
    explicit HostileKey(Input& input) : m_input(input) {}

    const std::string& Name() const override { return m_name; }
    bool IsDue() override { return m_input.Byte() & 1u; }
    void Postpone() override {}
    KeyResult Watch() override { return Result(); }
    bool IsSignalled() override { return m_input.Byte() & 1u; }
    KeyResult GetMark(Section, SectionMark& mark) override {
        mark = {m_input.Byte() & 1u, 0};
        return Result();
    }
    KeyResult Read(Section section, const Visitor& visitor) override {
        for (std::size_t count = m_input.Byte() % 8u; count > 0; --count) {
            if (m_input.Byte() == 0xFF)
                throw std::bad_alloc();
            const std::string_view name = NameFrom(m_input, section);
            const std::uint32_t type = m_input.Byte() % 12u;
            const std::string_view data = m_input.Bytes(m_input.Byte() * 8u + (m_input.Byte() & 7u));
            visitor(name, type, std::as_bytes(std::span(data)));
        }
        return Result();
    }
    KeyResult Write(Section section, const char* name, KeyValueType type,
                    std::span<const std::byte> data) override {
        if (!name || section > Section::Values || data.empty() ||
            (type == KeyValueType::Text && data.back() != std::byte{}) || data.size() > kMaxValueSize)
            std::abort();
        if (m_input.Byte() == 0xFF)
            throw std::bad_alloc();
        return Result();
    }
    std::string ImageOf(std::string_view text) const override {
        std::string image(text);
        if (m_input.Byte() & 1u)
            image.append(m_input.Bytes(m_input.Byte() * 8u));
        return image;
    }

  private:
    // Done more often than not.
    KeyResult Result() {
        switch (m_input.Byte()) {
        case 0xFF: return KeyResult::Gone;
        case 0xFE:
        case 0xFD: return KeyResult::Failed;
        default: return KeyResult::Done;
        }
    }

    Input& m_input;
    const std::string m_name = "a key";
};

void UseHostileKey(Input& input) {
    ValueStore store;
    while (!input.IsEmpty()) {
        const auto bank = static_cast<Bank>(input.Byte() % kBankCount);
        const int keyword = static_cast<int>(input.Byte()) * 2 - 20;
        const std::size_t row = input.Byte() % kValueRows.size();
        switch (input.Byte() % 8) {
        case 0: store.Attach(std::make_unique<HostileKey>(input)); break;
        case 1: store.HandOutKeyName(); break;
        case 2: store.Get(bank, keyword); break;
        case 3: store.Set(bank, keyword, input.Byte()); break;
        case 4:
            if (kValueRows[row].type == ValueType::Text)
                store.SetText(static_cast<NamedValue>(row), std::string(input.Bytes(input.Byte())).c_str());
            break;
        case 5: store.SetNumber(NamedValue::BleedSize, std::uint32_t{input.Byte()}); break;
        case 6: store.Detach(); break;
        default: store.Named(); break;
        }
    }
    NamedValues values = store.Named();
    CheckTexts(values);

    // With the key let go nothing comes from outside any more.
    store.Detach();
    store.Set(Bank::Current, 104, 7);
    if (store.Get(Bank::Current, 104) != 7 || !store.KeyName().empty())
        std::abort();
}

void SetTexts(Input& input) {
    ValueStore store;
    while (!input.IsEmpty()) {
        const std::size_t row = input.Byte() % kValueRows.size();
        if (kValueRows[row].type == ValueType::Text)
            store.SetText(static_cast<NamedValue>(row), std::string(input.Bytes(input.Byte() * 8u)).c_str());
        else
            store.Set(static_cast<Bank>(input.Byte() % kBankCount), static_cast<int>(input.Byte()) * 37 - 500,
                      1);
    }
    NamedValues values = store.Named();
    CheckTexts(values);
}

void CheckNames(Input& input) {
    const std::string_view name = input.Bytes(600);
    if (IsDataSettingKeyName(name) &&
        (name.size() != 45 || !name.starts_with("Software\\Zephra\\QPSP\\DataSet_")))
        std::abort();
    const std::string path = AuthenticationKeyPath(name);
    const std::string_view parent = "Software\\Zephra\\ZR Print Driver Data\\";
    if (!path.empty() && (!path.starts_with(parent) || path.size() == parent.size() || path.size() > 300))
        std::abort();
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    Input input(data, size);
    switch (input.Byte() % 4) {
    case 0: LoadKey(input); break;
    case 1: SetTexts(input); break;
    case 2: UseHostileKey(input); break;
    default: CheckNames(input); break;
    }
    return 0;
}
