// The walk through a description's statements, and what is made of them at the end.
#pragma once

#include "host/ppd_statements.h"

#include <array>
#include <unordered_map>

namespace ppd {

// Thrown at the first fault of the file.
struct ParseFailure {
    PpdError error;
};

inline constexpr std::string_view kDefaultPrefix = "Default";

// For messages, so a "?" for each byte that is not ASCII.
std::string Quoted(std::string_view text);

template <class Value>
using Table = std::unordered_map<std::string, Value>;

// A value with the line that gave it.
struct Located {
    std::string value;
    std::size_t line = 0;
};

class Parser {
  public:
    explicit Parser(std::string_view bytes) : m_reader(bytes) {}

    PpdFile Run();

  private:
    using Handler = void (Parser::*)();
    struct Keyword {
        std::string_view name;
        Handler handler;
    };

    [[noreturn]] void Fail(std::size_t line, std::string message) const {
        throw ParseFailure{{line, std::move(message)}};
    }
    [[noreturn]] void Fail(std::string message) const { Fail(m_statement.line, std::move(message)); }

    void ReadHeader();
    void ReadStatement();
    bool ReadOption();
    bool ReadDefault();
    bool ReadJapanese();

    void OpenGroup();
    void CloseGroup();
    void OpenUI();
    void CloseUI();
    void ReadConstraint();
    void ReadPaperDimension();
    void ReadImageableArea();
    void ReadCustomPage();
    void ReadCustomParameter();
    void ReadColorDevice();
    void ReadManufacturer() { m_file.manufacturer = InformationText(); }
    void ReadModelName() { m_file.modelName = InformationText(); }
    void ReadNickName() { m_file.nickName = InformationText(); }
    void ReadPcFileName() { m_file.pcFileName = InformationText(); }
    void RefuseInclude() { Fail("Included files are not supported."); }

    std::string InformationText() const;
    std::string DecodedText(std::string_view text) const;
    std::string_view FeatureKeyword(std::string_view text) const;
    template <std::size_t Count>
    std::array<double, Count> Numbers(std::string_view text) const;

    void Finish();
    void ResolveDefaults();
    void ResolveTexts();
    void ResolvePapers();
    void ResolveCustomPage();
    void CheckConstraints() const;
    std::string TakeJapanese(const std::string& key);

    StatementReader m_reader;
    Statement m_statement;
    PpdFile m_file;
    std::vector<std::size_t> m_featureLines;
    Table<std::size_t> m_featureIndex;
    std::vector<Table<std::size_t>> m_optionIndex; // by feature
    std::optional<std::size_t> m_openFeature;
    std::vector<std::string> m_openGroups;
    Table<Located> m_defaults;
    Table<Located> m_japanese; // by "Keyword Option", the option empty for the keyword itself
    Table<std::array<double, 2>> m_dimensions;
    Table<std::array<double, 4>> m_areas;
    std::optional<std::array<double, 2>> m_customWidth;
    std::optional<std::array<double, 2>> m_customHeight;
    std::vector<std::size_t> m_constraintLines;
};

} // namespace ppd
