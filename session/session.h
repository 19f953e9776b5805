// The working state of the open document sheet and the way from a setting to the driver's item behind it.
#pragma once

#include "oemps/devmode.h"
#include "oemps/printoem.h"
#include "session/keyword.h"
#include "session/single_values.h"

#include <array>
#include <cstdint>

// One zeroed block from the heap that the driver gives the plug-in. It lives from the sheet's first
// CommonUIProp to PROPSHEETUI_REASON_DESTROY.
struct SessionBlock {
    HANDLE hOEMHeap; // kept so that the block can free itself

    IPrintOemDriverUI* pDriverUI;
    POEMUIOBJ poemuiobj;

    HANDLE hComPropSheet;
    HANDLE hResultPage; // the last page added
    PFNCOMPROPSHEET pfnComPropSheet;

    PrivateDevMode* pOEMDM;
    HANDLE hPrinter;
    WORD dmDriverVersion;    // of the public DEVMODE
    std::uint8_t* pDrvExtra; // the driver's own private area, right behind the 220-byte public DEVMODEW
    // Bytes at pDrvExtra, as the public DEVMODE's dmDriverExtra says.
    std::uint32_t drvExtraSize;

    char Profile[260]; // file name of the device profile

    // Where a text value rests on its way from the store into the record.
    char scratch[single_value::kScratchSize];

    std::array<OPTITEM*, kKeywordCount> item; // the bound driver items, null where none is bound
};

// A value around the block; owns nothing. Without a block its operations do nothing and answer 0.
class CSession {
  public:
    explicit CSession(SessionBlock* block) : m_p(block) {}

    // Binds the driver's items to the keywords and loads the store from them and from the private DEVMODE.
    // Runs once per sheet; the block has its record, printer and driver's area by then.
    static void HidePrinterSetting(OEMCUIPPARAM* param, SessionBlock* block);

    // The options of the bound item; 0 for an id outside the table or without an item.
    int DRVGetKeywordNumOptions(int id);

    // Stores one number at the target of its id: a keyword's driver item, or a field of the private DEVMODE
    // by its route id. 0 if the id has no target or the driver fails, else 1.
    int DRVSetDWord(int id, std::uint32_t value);

    // Takes everything from the store into the driver's items and the private DEVMODE.
    void ApplyAll();

    // Tells the common property sheet that the settings are to be kept. The argument, which pages pass as
    // 1002, has no use.
    int NotifyApplied(int page);

    // The form name at an index, out of the slots last read: 1, or 0 if there is no such slot. A name of 64
    // bytes fills its slot and has no NUL of its own.
    static int GetFormsInfo(std::uint32_t index, const char** name);
    static int GetFormsCount();

    // The index of a name in the keyword table, -1 if it is not there.
    static int KeywordIdFromName(const char* name);

    // Single values, each with a log line. Get and Save read into the scratch text, Save copies it into the
    // record; both answer 1.
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
