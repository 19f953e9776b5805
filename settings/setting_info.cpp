#include "settings/setting_info.h"

#include "Common/log.h"
#include "session/datamanager.h"
#include "session/keyword.h"
#include "settings/copies_limits.h"
#include "settings/keyword_transfer.h"
#include "settings/named_value_transfer.h"
#include "settings/password_scramble.h"
#include "settings/print_option_access.h"
#include "settings/setting_session.h"

#include <string>

namespace {

constexpr int kFirstNamedValue = kKeywordCount; // 327, which has no action
constexpr int kLastNamedValue = 562;

// The two lengths of the custom paper need more than the 16 bits of the other keywords.
bool IsWide(int keyword) {
    return keyword == keyword::CustomPaperWidth || keyword == keyword::CustomPaperHeight;
}

// What the standard settings say of them, also in place of a named value.
std::uint32_t StandardCustomPaperSize(int keyword) {
    return keyword == keyword::CustomPaperWidth ? 168378 : 119055;
}

// A number of copies that the bank may not hold is put right on its way into the record only.
std::uint32_t RecordCopies(std::uint32_t bankCopies) {
    return static_cast<std::uint32_t>(CopiesInRange(static_cast<std::int32_t>(bankCopies)));
}

std::uint32_t GetField(const ddb::CPrintOptionEx& option, int keyword) {
    return ddb::GetU32(option, *ddb::FindFieldByValueNumber(keyword));
}

void SetField(ddb::CPrintOptionEx& option, int keyword, std::uint32_t value) {
    ddb::SetU32(option, *ddb::FindFieldByValueNumber(keyword), value);
}

void BankToRecord(CCurrentSetting& setting, int keyword, KeywordMove move) {
    std::uint32_t value = IsWide(keyword) ? setting.ReadBank(keyword) : setting.ReadBankShort(keyword);
    if (move == KeywordMove::Converted)
        value = TagNumberOrSame(keyword, value);
    if (keyword == keyword::Copies)
        value = RecordCopies(value);
    SetField(setting.PrintOption(), keyword, value);
}

void RecordToBank(CCurrentSetting& setting, int keyword, KeywordMove move) {
    std::uint32_t value = GetField(setting.PrintOption(), keyword);
    if (move == KeywordMove::Converted)
        value = OptionIndexOrSame(keyword, value);
    if (IsWide(keyword))
        setting.WriteBank(keyword, value);
    else
        setting.WriteBankShort(keyword, static_cast<std::uint16_t>(value));
}

// Runs the step for each number of a range, whatever a step answers: 1 if none answered 0.
template <class Step>
int ForEach(int first, int last, Step step) {
    int result = 1;
    for (int number = first; number <= last; ++number)
        if (!step(number))
            result = 0;
    return result;
}

template <class Step>
int ForEachKeyword(Step step) {
    return ForEach(0, kKeywordCount - 1, step);
}

template <class Step>
int ForEachNamedValue(Step step) {
    return ForEach(kFirstNamedValue, kLastNamedValue, step);
}

std::uint32_t Read(void (*get)(int, std::uint32_t*), int keyword) {
    std::uint32_t value = 0;
    get(keyword, &value);
    return value;
}

} // namespace

CSettingInfo::CSettingInfo() {
    m_printOption.Clear();
}

void CSettingInfo::PreparePassword() {
    const ddb::FieldDescriptor& field = ddb::FieldAt(ddb::FieldId::SecPrintPassword);
    const std::string password = ddb::GetText(m_printOption, field);
    if (!password.empty())
        ddb::SetText(m_printOption, field, ScramblePassword(password));
}

int CCurrentSetting::CreateSettingInfo() {
    ZR_LOG_ENTRY();
    const int keywords =
        ForEachKeyword([this](int n) { return PrintOptionFromSession(n, TransferDirection::FromBank); });
    const int values =
        ForEachNamedValue([this](int n) { return NamedValueFromSession(n, TransferDirection::FromBank); });
    return keywords && values;
}

int CCurrentSetting::SaveToSession() {
    ZR_LOG_ENTRY();
    const int keywords =
        ForEachKeyword([this](int n) { return PrintOptionFromSession(n, TransferDirection::ToBank); });
    const int values =
        ForEachNamedValue([this](int n) { return NamedValueFromSession(n, TransferDirection::ToBank); });
    return keywords && values;
}

int CCurrentSetting::SaveFavoriteToSession() {
    ZR_LOG_ENTRY();
    const int keywords = ForEachKeyword([this](int n) { return FavoriteFromSession(n); });
    const int values = ForEachNamedValue([this](int n) { return NamedValueToSession(n); });
    return keywords && values;
}

int CCurrentSetting::AllCurrentToSession() {
    ZR_LOG_ENTRY();
    return ForEachKeyword([this](int n) { return CurrentToSession(n); });
}

int CCurrentSetting::AllSessionToCurrent() {
    ZR_LOG_ENTRY();
    const int keywords = ForEachKeyword([this](int n) { return SessionToCurrent(n); });
    const int values =
        ForEachNamedValue([this](int n) { return NamedValueFromSession(n, TransferDirection::FromBank); });
    return keywords && values;
}

int CCurrentSetting::PrintOptionFromSession(int keyword, TransferDirection direction) {
    Session();
    const KeywordMove move = MovesOf(keyword).printOptionFromSession;
    if (move == KeywordMove::None)
        return 1;
    switch (direction) {
    case TransferDirection::FromBank: BankToRecord(*this, keyword, move); break;
    case TransferDirection::ToBank: RecordToBank(*this, keyword, move); break;
    }
    return 1;
}

int CCurrentSetting::FavoriteFromSession(int keyword) {
    Session();
    const KeywordMove move = MovesOf(keyword).favoriteFromSession;
    if (move != KeywordMove::None)
        RecordToBank(*this, keyword, move);
    return 1;
}

// These two pass the slots by: whatever the class, they work on the Current bank.
int CCurrentSetting::CurrentToSession(int keyword) {
    Session();
    if (MovesOf(keyword).currentToSession != KeywordMove::None)
        ExportedFunc_SetCurrent(keyword, GetField(PrintOption(), keyword));
    return 1;
}

int CCurrentSetting::SessionToCurrent(int keyword) {
    Session();
    if (MovesOf(keyword).sessionToCurrent == KeywordMove::None)
        return 1;
    std::uint32_t value = Read(ExportedFunc_GetCurrent, keyword);
    if (keyword == keyword::Copies)
        value = RecordCopies(value);
    SetField(PrintOption(), keyword, value);
    return 1;
}

int CCurrentSetting::NamedValueFromSession(int number, TransferDirection direction) {
    switch (direction) {
    case TransferDirection::FromBank: NamedValueFromStore(PrintOption(), number); break;
    case TransferDirection::ToBank: NamedValueToStore(PrintOption(), number); break;
    }
    return 1;
}

int CCurrentSetting::NamedValueToSession(int number) {
    NamedValueToStore(PrintOption(), number);
    return 1;
}

SessionBlock* CCurrentSetting::Session() {
    return SettingSession();
}

std::uint16_t CCurrentSetting::ReadBankShort(int keyword) {
    return static_cast<std::uint16_t>(Read(ExportedFunc_GetCurrent, keyword));
}

void CCurrentSetting::WriteBankShort(int keyword, std::uint16_t value) {
    ExportedFunc_SetCurrent(keyword, value);
}

std::uint32_t CCurrentSetting::ReadBank(int keyword) {
    return Read(ExportedFunc_GetCurrent, keyword);
}

void CCurrentSetting::WriteBank(int keyword, std::uint32_t value) {
    ExportedFunc_SetCurrent(keyword, value);
}

CDefaultSetting::~CDefaultSetting() = default;

// The store has one slot for a named value and no default of it: what is written here replaces the present
// value.
int CDefaultSetting::NamedValueFromSession(int number, TransferDirection direction) {
    switch (direction) {
    case TransferDirection::FromBank:
        if (IsWide(number))
            SetField(PrintOption(), number, StandardCustomPaperSize(number));
        else
            StandardValueToRecord(PrintOption(), number);
        break;
    case TransferDirection::ToBank:
        if (IsWide(number))
            WriteBank(number, StandardCustomPaperSize(number));
        else
            StandardValueToStore(number);
        break;
    }
    return 1;
}

std::uint16_t CDefaultSetting::ReadBankShort(int keyword) {
    return static_cast<std::uint16_t>(Read(ExportedFunc_GetDefault, keyword));
}

void CDefaultSetting::WriteBankShort(int keyword, std::uint16_t value) {
    ExportedFunc_SetDefault(keyword, value);
}

std::uint32_t CDefaultSetting::ReadBank(int keyword) {
    return Read(ExportedFunc_GetDefault, keyword);
}

void CDefaultSetting::WriteBank(int keyword, std::uint32_t value) {
    ExportedFunc_SetDefault(keyword, value);
}

int CFavoriteSetting::CreateSettingInfo() {
    return 1;
}

int CFavoriteSetting::PrintOptionFromSession(int, TransferDirection) {
    return 1;
}

int CFavoriteSetting::SaveToSession() {
    return 1;
}

int CFavoriteSetting::SaveFavoriteToSession() {
    return 1;
}

void CFavoriteSetting::WriteBank(int keyword, std::uint32_t value) {
    ExportedFunc_SetFavorite(keyword, value);
}

std::uint32_t CFavoriteSetting::ReadBank(int keyword) {
    return Read(ExportedFunc_GetFavorite, keyword);
}

SessionBlock* CFavoriteSetting::Session() {
    return SettingSession();
}
