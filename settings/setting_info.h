// The setting objects: one whole set of print settings each, tied to one bank of the value store.
#pragma once

#include "settings/Ddb_PrintOption.h"

#include <array>
#include <cstdint>

struct SessionBlock;

// Which way a value moves between a bank of the store and a setting object's record.
enum class TransferDirection : int {
    FromBank = 0,
    ToBank = 1,
};

// The order of the operations of this class and of those below it is the order of their slots.
class CSettingInfo {
  public:
    virtual ~CSettingInfo() = default;

    // Fills the record. 1 if every value came, else 0.
    virtual int CreateSettingInfo() = 0;
    // Makes the password of the record's SecPrintPassword unreadable, and no other one; an empty one stays as
    // it is, its flag too.
    virtual void PreparePassword();

    ddb::CPrintOptionEx& PrintOption() { return m_printOption; }
    const ddb::CPrintOptionEx& PrintOption() const { return m_printOption; }

  protected:
    // The record begins cleared, whatever a record of its own would start with: every field 0, every text
    // empty.
    CSettingInfo();
    CSettingInfo(const CSettingInfo&) = default;
    CSettingInfo& operator=(const CSettingInfo&) = default;

  private:
    ddb::CPrintOptionEx m_printOption;
};

// The present settings, in the Current bank and the store's named values.
//
// A keyword's option index in the bank is a tag number in the record where the keyword's row in
// keyword_transfer.def says so; where the conversion finds no entry, the value itself is handed on. A keyword
// outside 0 to 326, a named value outside 328 to 562 and a number without a case move nothing. The operations
// on one value always answer 1.
class CCurrentSetting : public CSettingInfo {
  public:
    int CreateSettingInfo() override;

    // One keyword.
    virtual int PrintOptionFromSession(int keyword, TransferDirection direction);
    // The whole record to the bank. 1 if every step succeeded, else 0; none is left out.
    virtual int SaveToSession();
    // The same by the rules of FavoriteFromSession.
    virtual int SaveFavoriteToSession();
    // One keyword to the bank, as a chosen favourite's values go there.
    virtual int FavoriteFromSession(int keyword);
    // One named value, 328 to 562.
    virtual int NamedValueFromSession(int number, TransferDirection direction);
    // The open sheet's session, null without one. Each operation on one keyword asks for it first.
    virtual SessionBlock* Session();
    // The bank's value of a keyword cut to 16 bits: all keywords but the custom paper's two lengths go this
    // way.
    virtual std::uint16_t ReadBankShort(int keyword);
    virtual void WriteBankShort(int keyword, std::uint16_t value);
    // One named value to the store.
    virtual int NamedValueToSession(int number);
    // The whole value.
    virtual std::uint32_t ReadBank(int keyword);
    virtual void WriteBank(int keyword, std::uint32_t value);

    // One keyword between the record and the Current bank whatever the class, unconverted and whole.
    int CurrentToSession(int keyword);
    int SessionToCurrent(int keyword);
    // The loops over them: all keywords to the bank; all keywords and then all named values from it.
    int AllCurrentToSession();
    int AllSessionToCurrent();
};

// The standard settings, in the Default bank. The store has no default of a named value:
// NamedValueFromSession gives the constants of standard_values.h instead, to the record from the bank's side
// and to the store, over the present values, from the record's. It also answers to the custom paper's two
// lengths, 301 and 302.
class CDefaultSetting : public CCurrentSetting {
  public:
    ~CDefaultSetting() override;

    int NamedValueFromSession(int number, TransferDirection direction) override;
    std::uint16_t ReadBankShort(int keyword) override;
    void WriteBankShort(int keyword, std::uint16_t value) override;
    std::uint32_t ReadBank(int keyword) override;
    void WriteBank(int keyword, std::uint32_t value) override;
};

// The settings of a favourite file, with what the file tells of itself. The transfers do nothing and
// answer 1.
class CFavoriteSetting : public CSettingInfo {
  public:
    int CreateSettingInfo() override;
    virtual int PrintOptionFromSession(int keyword, TransferDirection direction);
    virtual int SaveToSession();
    virtual int SaveFavoriteToSession();
    virtual void WriteBank(int keyword, std::uint32_t value);
    virtual std::uint32_t ReadBank(int keyword);
    virtual SessionBlock* Session();

    // NUL-terminated texts in the process's ANSI code page.
    std::array<char, 260> Name{}; // also the file's name without its extension
    std::array<char, 256> Comment{};
    std::uint32_t IotVer = 0;  // device format
    std::uint32_t FileVer = 0; // file format
    std::array<char, 260> Directory{};
    std::uint32_t CharCode = 0;
    std::array<char, 260> PageSize{}; // the document size when it was saved
};
