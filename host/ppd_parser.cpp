#include "host/ppd_parser.h"

#include <algorithm>
#include <charconv>
#include <cmath>

namespace ppd {
namespace {

// No sheet is longer than this; a plausible bound that keeps every later conversion inside 32 bits.
constexpr double kMaxPoints = 100000;

} // namespace

std::string Quoted(std::string_view text) {
    std::string quoted(text.substr(0, 80));
    std::ranges::replace_if(
        quoted, [](unsigned char c) { return c < 0x20 || c > 0x7E; }, '?');
    return "\"" + quoted + "\"";
}

PpdFile Parser::Run() {
    ReadHeader();
    while (m_reader.Next(m_statement))
        ReadStatement();
    if (m_reader.Error())
        throw ParseFailure{*m_reader.Error()};
    Finish();
    return std::move(m_file);
}

void Parser::ReadHeader() {
    if (!m_reader.Next(m_statement)) {
        if (m_reader.Error())
            throw ParseFailure{*m_reader.Error()};
        Fail(1, "The file is empty.");
    }
    if (m_statement.main != "PPD-Adobe" || !m_statement.value.starts_with("4."))
        Fail("The file does not begin as a printer description of format 4.");
}

void Parser::ReadStatement() {
    static constexpr Keyword kKeywords[] = {
        {"OpenGroup", &Parser::OpenGroup},
        {"OpenSubGroup", &Parser::OpenGroup},
        {"CloseGroup", &Parser::CloseGroup},
        {"CloseSubGroup", &Parser::CloseGroup},
        {"OpenUI", &Parser::OpenUI},
        {"JCLOpenUI", &Parser::OpenUI},
        {"CloseUI", &Parser::CloseUI},
        {"JCLCloseUI", &Parser::CloseUI},
        {"UIConstraints", &Parser::ReadConstraint},
        {"PaperDimension", &Parser::ReadPaperDimension},
        {"ImageableArea", &Parser::ReadImageableArea},
        {"CustomPageSize", &Parser::ReadCustomPage},
        {"ParamCustomPageSize", &Parser::ReadCustomParameter},
        {"ColorDevice", &Parser::ReadColorDevice},
        {"Manufacturer", &Parser::ReadManufacturer},
        {"ModelName", &Parser::ReadModelName},
        {"NickName", &Parser::ReadNickName},
        {"PCFileName", &Parser::ReadPcFileName},
        {"Include", &Parser::RefuseInclude},
    };
    if (ReadOption() || ReadDefault() || ReadJapanese())
        return;
    auto keyword = std::ranges::find(kKeywords, m_statement.main, &Keyword::name);
    if (keyword != std::end(kKeywords))
        (this->*keyword->handler)();
}

std::string Parser::DecodedText(std::string_view text) const {
    auto decoded = DecodeText(text);
    if (!decoded)
        Fail("The text of " + Quoted(m_statement.main) + " is too long or malformed.");
    return *decoded;
}

std::string Parser::InformationText() const {
    if (!m_statement.quoted)
        Fail("The value of " + Quoted(m_statement.main) + " is not quoted.");
    return DecodedText(m_statement.value);
}

// The keyword in "*Keyword".
std::string_view Parser::FeatureKeyword(std::string_view text) const {
    if (text.size() < 2 || text.size() > kMaxKeywordLength + 1 || text.front() != '*')
        Fail("A feature's keyword is missing or malformed.");
    return text.substr(1);
}

template <std::size_t Count>
std::array<double, Count> Parser::Numbers(std::string_view text) const {
    std::array<double, Count> numbers{};
    for (double& number : numbers) {
        std::string_view word = TakeWord(text);
        auto [end, status] = std::from_chars(word.data(), word.data() + word.size(), number);
        // The comparison also refuses infinities and NaN.
        if (status != std::errc() || end != word.data() + word.size() || !(std::abs(number) <= kMaxPoints))
            Fail("A number of " + Quoted(m_statement.main) + " is missing or malformed.");
    }
    if (!Trim(text).empty())
        Fail("The value of " + Quoted(m_statement.main) + " has more numbers than it should.");
    return numbers;
}

void Parser::OpenGroup() {
    if (m_openFeature)
        Fail("A group begins inside a feature.");
    std::string_view name = m_statement.value.substr(0, m_statement.value.find('/'));
    if (name.empty() || name.size() > kMaxKeywordLength || m_openGroups.size() > 1)
        Fail("A group has no name, or groups are nested too deeply.");
    m_openGroups.emplace_back(name);
}

void Parser::CloseGroup() {
    std::string_view name = m_statement.value.substr(0, m_statement.value.find('/'));
    if (m_openGroups.empty() || m_openGroups.back() != name)
        Fail("A group is closed that is not the open one.");
    m_openGroups.pop_back();
}

void Parser::OpenUI() {
    static constexpr std::pair<std::string_view, FeatureKind> kKinds[] = {{"PickOne", FeatureKind::PickOne},
                                                                          {"PickMany", FeatureKind::PickMany},
                                                                          {"Boolean", FeatureKind::Boolean}};
    if (m_openFeature)
        Fail("A feature begins inside another.");
    std::string keyword(FeatureKeyword(m_statement.option));
    auto kind =
        std::ranges::find(kKinds, m_statement.value, &std::pair<std::string_view, FeatureKind>::first);
    if (kind == std::end(kKinds))
        Fail("The feature " + Quoted(keyword) + " has an unknown type.");
    if (m_file.features.size() == kMaxFeatures)
        Fail("The file has too many features.");
    if (!m_featureIndex.emplace(keyword, m_file.features.size()).second)
        Fail("The feature " + Quoted(keyword) + " is described twice.");

    Feature feature;
    feature.text = m_statement.text.empty() ? keyword : DecodedText(m_statement.text);
    feature.keyword = std::move(keyword);
    feature.kind = kind->second;
    feature.jcl = m_statement.main == "JCLOpenUI";
    if (!m_openGroups.empty())
        feature.group = m_openGroups.back();
    m_openFeature = m_file.features.size();
    m_file.features.push_back(std::move(feature));
    m_featureLines.push_back(m_statement.line);
    m_optionIndex.emplace_back();
}

void Parser::CloseUI() {
    std::string_view keyword = FeatureKeyword(m_statement.value);
    if (!m_openFeature || m_file.features[*m_openFeature].keyword != keyword)
        Fail("A feature is closed that is not the open one.");
    m_openFeature.reset();
}

// A statement named after a feature is one of its options.
bool Parser::ReadOption() {
    auto found = m_featureIndex.find(std::string(m_statement.main));
    if (found == m_featureIndex.end())
        return false;
    if (m_openFeature != found->second)
        Fail("An option of " + Quoted(m_statement.main) + " stands outside its feature.");
    Feature& feature = m_file.features[found->second];
    if (m_statement.option.empty() || m_statement.option.size() > kMaxKeywordLength || !m_statement.hasColon)
        Fail("An option of " + Quoted(feature.keyword) + " is malformed.");
    if (feature.options.size() == kMaxOptions)
        Fail("The feature " + Quoted(feature.keyword) + " has too many options.");
    std::string keyword(m_statement.option);
    if (!m_optionIndex[found->second].emplace(keyword, feature.options.size()).second)
        Fail("The option " + Quoted(keyword) + " of " + Quoted(feature.keyword) + " is described twice.");
    if (feature.kind == FeatureKind::Boolean && keyword != "True" && keyword != "False")
        Fail("The feature " + Quoted(feature.keyword) + " has an option other than True and False.");
    std::string text = m_statement.text.empty() ? keyword : DecodedText(m_statement.text);
    feature.options.push_back({std::move(keyword), std::move(text), {}});
    return true;
}

// Defaults may stand anywhere, also in front of their feature.
bool Parser::ReadDefault() {
    if (!m_statement.main.starts_with(kDefaultPrefix))
        return false;
    std::string keyword(m_statement.main.substr(kDefaultPrefix.size()));
    auto [entry, added] =
        m_defaults.try_emplace(keyword, Located{std::string(m_statement.value), m_statement.line});
    if (!added && entry->second.value != m_statement.value)
        Fail("The default of " + Quoted(keyword) + " is given twice.");
    return true;
}

bool Parser::ReadJapanese() {
    constexpr std::string_view kPrefix = "ja.";
    if (!m_statement.main.starts_with(kPrefix))
        return false;
    std::string_view main = m_statement.main.substr(kPrefix.size());
    std::string key = main == "Translation" ? std::string(m_statement.option) + " "
                                            : std::string(main) + " " + std::string(m_statement.option);
    std::string text = DecodedText(m_statement.text);
    if (!m_japanese.try_emplace(key, Located{std::move(text), m_statement.line}).second)
        Fail("A Japanese text of " + Quoted(Trim(key)) + " is given twice.");
    return true;
}

void Parser::ReadConstraint() {
    Constraint constraint;
    std::string_view rest = m_statement.value;
    auto option = [&] { return Trim(rest).starts_with('*') ? std::string() : std::string(TakeWord(rest)); };
    constraint.feature = FeatureKeyword(TakeWord(rest));
    constraint.option = option();
    constraint.otherFeature = FeatureKeyword(TakeWord(rest));
    constraint.otherOption = option();
    if (!Trim(rest).empty())
        Fail("A constraint names more than two features.");
    m_file.constraints.push_back(std::move(constraint));
    m_constraintLines.push_back(m_statement.line);
}

void Parser::ReadPaperDimension() {
    auto numbers = Numbers<2>(m_statement.value);
    if (numbers[0] <= 0 || numbers[1] <= 0)
        Fail("A paper dimension is not positive.");
    if (!m_dimensions.try_emplace(std::string(m_statement.option), numbers).second)
        Fail("The dimension of paper " + Quoted(m_statement.option) + " is given twice.");
}

void Parser::ReadImageableArea() {
    auto numbers = Numbers<4>(m_statement.value);
    if (numbers[0] >= numbers[2] || numbers[1] >= numbers[3])
        Fail("An imageable area is empty.");
    if (!m_areas.try_emplace(std::string(m_statement.option), numbers).second)
        Fail("The imageable area of paper " + Quoted(m_statement.option) + " is given twice.");
}

void Parser::ReadCustomPage() {
    if (m_statement.option != "True")
        return;
    if (m_file.customPage)
        Fail("The custom page is described twice.");
    m_file.customPage.emplace();
    m_file.customPage->text = m_statement.text.empty() ? "Custom Page Size" : DecodedText(m_statement.text);
}

// "*ParamCustomPageSize Width: 1 points 252 907": the order, the unit, the limits.
void Parser::ReadCustomParameter() {
    bool width = m_statement.option == "Width";
    if (!width && m_statement.option != "Height")
        return;
    std::string_view rest = m_statement.value;
    TakeWord(rest);
    if (TakeWord(rest) != "points")
        Fail("A custom page's length is not in points.");
    auto limits = Numbers<2>(rest);
    if (limits[0] <= 0 || limits[0] > limits[1])
        Fail("The limits of the custom page's " + std::string(width ? "width" : "height") +
             " are out of order.");
    auto& target = width ? m_customWidth : m_customHeight;
    if (target)
        Fail("The limits of the custom page are given twice.");
    target = limits;
}

void Parser::ReadColorDevice() {
    m_file.colorDevice = m_statement.value == "True";
}

} // namespace ppd
