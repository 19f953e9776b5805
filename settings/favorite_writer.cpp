#include "settings/favorite_writer.h"

#include "Common/log.h"
#include "Common/text.h"
#include "settings/favorite_texts.h"
#include "settings/print_option_tag_access.h"

#include <algorithm>
#include <array>
#include <string>
#include <string_view>
#include <utility>

namespace {

// What is logged where a step fails. The header's places are numbered, each kind of step for itself and in
// the order of the file.
struct StepMessages {
    const char* comment;
    const char* element;
    const char* text;
    const char* append;
    bool isNumbered;
};

constexpr StepMessages kHeaderMessages{"コメントノード作成エラー", "Elementノード(要素)生成エラー",
                                       "テキストノード作成エラー", "新しい子ノード追加エラー", true};
constexpr StepMessages kPrintOptionMessages{"createCommentエラー", "createElementエラー",
                                            "createTextNodeエラー", "appendChildエラー", false};

// Makes nodes and appends them, to the document where there is no parent. What fails is logged with the line
// of `function` that asked for it.
class NodeWriter {
  public:
    NodeWriter(XmlDocument& document, const StepMessages& messages, const char* function)
        : m_document(document), m_messages(messages), m_function(function) {}

    bool AddInstruction(std::string_view target, std::string_view text, int line = __builtin_LINE()) {
        const auto node = m_document.CreateProcessingInstruction(target, text);
        return node ? Append(nullptr, *node, line) : Fail("処理命令ノード作成エラー", 1, line);
    }
    bool AddComment(XmlNode* parent, std::string_view text, int line = __builtin_LINE()) {
        ++m_comments;
        const auto node = m_document.CreateComment(text);
        return node ? Append(parent, *node, line) : Fail(m_messages.comment, m_comments, line);
    }
    // Null if it fails.
    XmlNodeOwner AddElement(XmlNode* parent, std::string_view name, int line = __builtin_LINE()) {
        ++m_elements;
        auto node = m_document.CreateElement(name);
        const bool isAdded = node ? Append(parent, *node, line) : Fail(m_messages.element, m_elements, line);
        return isAdded ? std::move(node) : nullptr;
    }

    // A comment, and behind it an element that holds nothing but the text.
    bool AddValue(XmlNode& parent, std::string_view comment, std::string_view name, std::string_view text,
                  int line = __builtin_LINE()) {
        if (!AddComment(&parent, comment, line))
            return false;
        const auto element = AddElement(&parent, name, line);
        return element && AddText(*element, text, line);
    }

  private:
    bool AddText(XmlNode& parent, std::string_view text, int line) {
        ++m_texts;
        const auto node = m_document.CreateTextNode(text);
        return node ? Append(&parent, *node, line) : Fail(m_messages.text, m_texts, line);
    }

    bool Append(XmlNode* parent, XmlNode& child, int line) {
        ++m_appended;
        const bool isAppended =
            parent ? m_document.AppendChild(*parent, child) : m_document.AppendChild(child);
        return isAppended || Fail(m_messages.append, m_appended, line);
    }

    bool Fail(const char* message, int place, int line) const {
        WriteLog("%s %d行目 %s %s%s\n", __FILE__, line, m_function, message,
                 m_messages.isNumbered ? std::to_string(place).c_str() : "");
        return false;
    }

    XmlDocument& m_document;
    const StepMessages& m_messages;
    const char* m_function;
    int m_comments = 0;
    int m_elements = 0;
    int m_texts = 0;
    int m_appended = 0;
};

struct HeaderValue {
    std::string_view comment;
    FavoriteHeader element;
    std::string text;

    std::string_view Name() const { return FavoriteElementName(static_cast<std::size_t>(element)); }
};

std::array<HeaderValue, kFavoriteHeaders> HeaderValues(const CFavoriteSetting& setting) {
    return {{
        {"ファイルバージョン", FavoriteHeader::FileVer, std::to_string(setting.FileVer)},
        {"IOTバージョン", FavoriteHeader::IotVer, std::to_string(setting.IotVer)},
        {"文字コード", FavoriteHeader::CharCode, std::to_string(setting.CharCode)},
        {"コメント", FavoriteHeader::Comment, std::string(FieldText(setting.Comment))},
        {"原稿サイズ", FavoriteHeader::PageSize, std::string(FieldText(setting.PageSize))},
    }};
}

struct OptionRow {
    std::string_view tag;
    std::string_view longName;
    std::string_view description;
};

constexpr auto kOptionRows = std::to_array<OptionRow>({
#define ZR_TAG(key, longName, description) {#key, #longName, description},
#include "settings/tag_table.def"
});

// Who the job is authenticated as is nobody's business but the job's.
constexpr auto kUnwrittenTags = std::to_array<std::string_view>({"OAJ", "OAJUI", "OAJP", "OAJA"});

bool IsWritten(const OptionRow& row) {
    return std::ranges::find(kUnwrittenTags, row.tag) == kUnwrittenTags.end();
}

} // namespace

bool WriteFavoriteDocument(const CFavoriteSetting& setting, XmlDocument& document) {
    NodeWriter writer(document, kHeaderMessages, __func__);
    if (!writer.AddInstruction("xml", "version='1.0' encoding='UTF-8'") ||
        !writer.AddComment(nullptr, "お気に入り"))
        return false;
    const auto root = writer.AddElement(nullptr, "Favorite");
    if (!root)
        return false;
    for (const HeaderValue& value : HeaderValues(setting))
        if (!writer.AddValue(*root, value.comment, value.Name(), value.text)) {
            ZR_LOG("not written: %s\n", std::string(value.Name()).c_str());
            return false;
        }
    return writer.AddComment(root.get(), "プリントオプション") &&
           WriteXmlPrintOption(setting, document, *root);
}

bool WriteXmlPrintOption(const CFavoriteSetting& setting, XmlDocument& document, XmlNode& root) {
    NodeWriter writer(document, kPrintOptionMessages, __func__);
    const auto printOption = writer.AddElement(&root, "PrintOption");
    if (!printOption)
        return false;
    std::string value;
    for (const OptionRow& row : kOptionRows) {
        if (!IsWritten(row))
            continue;
        value.clear();
        FetchOption(row.tag, setting.PrintOption(), value);
        if (!writer.AddValue(*printOption, row.description, row.longName, value)) {
            ZR_LOG("not written: %s\n", std::string(row.longName).c_str());
            return false;
        }
    }
    return true;
}
