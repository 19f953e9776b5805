#include "dialog_template.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstddef>
#include <cstring>
#include <utility>

namespace {

class TemplateReader {
  public:
    explicit TemplateReader(std::string bytes) : m_bytes(std::move(bytes)) {}

    DialogTemplate Read() {
        DialogTemplate result;
        const std::string head = Take(8); // version, signature, help number
        EXPECT_EQ(head.substr(0, 4), std::string("\1\0\xFF\xFF", 4));
        result.dialog = Fixed();
        const WORD count = Word();
        TakePlace(result.dialog);
        result.dialog.className = TextOrNumber() + TextOrNumber(); // menu and class
        result.dialog.title = TextOrNumber();
        result.fontSize = Word();
        Take(4); // weight, slant and character set
        result.font = TextOrNumber();
        for (int i = 0; i < count; ++i)
            result.items.push_back(Control());
        EXPECT_EQ(m_at, m_bytes.size());
        return result;
    }

  private:
    std::string Take(std::size_t size) {
        EXPECT_LE(m_at + size, m_bytes.size());
        std::string part = m_bytes.substr(std::min(m_at, m_bytes.size()), size);
        part.resize(size);
        m_at += size;
        return part;
    }
    WORD Word() {
        WORD word = 0;
        std::memcpy(&word, Take(sizeof word).data(), sizeof word);
        return word;
    }
    std::wstring TextOrNumber() {
        std::wstring text;
        WORD word = Word();
        if (word == 0xFFFF)
            return L"#" + std::to_wstring(Word());
        for (; word != 0; word = Word())
            text += static_cast<wchar_t>(word);
        return text;
    }
    TemplateItem Fixed() {
        TemplateItem item;
        item.fixed = Take(8); // extended style, style
        std::memcpy(&item.style, item.fixed.data() + 4, sizeof item.style);
        return item;
    }
    void TakePlace(TemplateItem& item) {
        const std::string place = Take(8);
        std::memcpy(&item.width, place.data() + 4, sizeof item.width);
        item.fixed += place;
    }
    TemplateItem Control() {
        m_at = (m_at + 3) / 4 * 4;
        Take(4); // help number
        TemplateItem item = Fixed();
        TakePlace(item);
        const std::string number = Take(4);
        std::memcpy(&item.number, number.data(), sizeof item.number);
        item.fixed += number;
        item.className = TextOrNumber();
        item.title = TextOrNumber();
        Take(Word());
        return item;
    }

    std::string m_bytes;
    std::size_t m_at = 0;
};

} // namespace

DialogTemplate TemplateOf(const ResourceModule& module, int number) {
    return TemplateReader(module.Bytes(RT_DIALOG, number)).Read();
}

std::wstring WithoutAccelerator(std::wstring text) {
    std::erase(text, L'&');
    return text;
}
