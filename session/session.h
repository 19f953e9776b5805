// The working state of the open document sheet and the way from a setting to the driver's item behind it.
#pragma once

#include "oemps/devmode.h"
#include "oemps/printoem.h"
#include "session/keyword.h"

#include <array>
#include <cstdint>

// One zeroed block from the heap that the driver gives the plug-in. It lives from the sheet's first CommonUIProp to
// PROPSHEETUI_REASON_DESTROY.
struct SessionBlock {
    HANDLE hOEMHeap; // kept so that the block can free itself

    IPrintOemDriverUI* pDriverUI;
    POEMUIOBJ poemuiobj;

    HANDLE hComPropSheet;
    HANDLE hResultPage; // the last page added
    PFNCOMPROPSHEET pfnComPropSheet;

    PrivateDevMode* pOEMDM;
    HANDLE hPrinter;
    WORD dmDriverVersion;   // of the public DEVMODE
    std::uint8_t* pDrvExtra; // the driver's own private area, right behind the 220-byte public DEVMODEW
    // Bytes at pDrvExtra, as the public DEVMODE's dmDriverExtra says.
    std::uint32_t drvExtraSize;

    char Profile[260]; // file name of the device profile

    // Where a text value rests on its way from the store into the record.
    char scratch[1024];

    std::array<OPTITEM*, kKeywordCount> item; // the bound driver items, null where none is bound
};

// A value around the block; owns nothing.
class CSession {
  public:
    explicit CSession(SessionBlock* block) : m_p(block) {}

    // Binds the driver's items to the keywords and loads the store from them and from the private DEVMODE. Runs once
    // per sheet.
    static void HidePrinterSetting(OEMCUIPPARAM* param, SessionBlock* block);

    // The options of the bound item; 0 without a session or for an id beyond the table. The item must be bound.
    int DRVGetKeywordNumOptions(int id);

    // Stores one number at the target of its id: a driver's item or a field of the private DEVMODE. 1 or 0.
    int DRVSetDWord(int id, std::uint32_t value);

    // Takes everything from the store into the driver's items and the private DEVMODE.
    void ApplyAll();

    // Tells the common property sheet that the settings are to be kept. The second argument, which pages pass as 1002,
    // has no use.
    int NotifyApplied(int page);

    // The form name at an index, out of the slots read when the sheet was opened: 1, or 0 if there is no such slot.
    static int GetFormsInfo(std::uint32_t index, const char** name);
    static int GetFormsCount();

    // The index of a name in the keyword table, -1 if it is not there.
    static int KeywordIdFromName(const char* name);

    int SaveRecordSpecNumber();
    int GetJobName();
    int SaveJobName();
    void SetJobName(const char* name);
    void SetSPages(const char* pages);
    int SaveSPages();
    void SetCmykKPreservation(std::uint32_t value);
    void GetCmykKPreservation(std::uint32_t* value);
    void SetSpecificJobName(std::uint32_t value);
    void GetSpecificJobName(std::uint32_t* value);
    void SetProfile(const char* profile);

    SessionBlock* Block() const { return m_p; }

  private:
    SessionBlock* m_p;
    [[maybe_unused]] std::uintptr_t m_reserved = 0;
};

// Process-wide access to the session and the banks, for code that has no window.
class CSessionAccessor {
  public:
    virtual ~CSessionAccessor() = default;

    static CSessionAccessor* Instance(); // created on first use
    static void Release();

    void SetSession(SessionBlock* block) { m_block = block; }
    SessionBlock* GetSession() const { return m_block; }

    std::uint32_t GetDefault(int id) const;
    std::uint32_t GetCurrent(int id) const;
    std::uint32_t GetFavorite(int id) const;
    void SetDefault(int id, std::uint32_t value);
    void SetCurrent(int id, std::uint32_t value);
    void SetFavorite(int id, std::uint32_t value);

  private:
    SessionBlock* m_block = nullptr;
};
