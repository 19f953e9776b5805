// The plug-in that the driver's tests load in place of the real one: it does little and records what it is
// asked.
#pragma once

#include "oemps/printoem.h"

// The block it keeps in the DEVMODE.
struct TestBlock {
    OEM_DMEXTRAHEADER header;
    DWORD value;   // 7 by default
    DWORD takenBy; // OEMDM_MERGE or OEMDM_CONVERT, whichever brought the block in
    BYTE filling[4080];
};
static_assert(sizeof(TestBlock) == 4100);
inline constexpr DWORD kTestSignature = 0x54534554;
inline constexpr DWORD kTestVersion = 1;

// How its exports are named; they reach into the instance that the driver has loaded.
//   const char* TestPluginCalls()        what it was asked so far, one blank after each call
//   TestPluginHooks* TestPluginControl() what it is to do
struct TestPluginHooks {
    HRESULT devModeStatus = S_OK;
    HRESULT takeStatus = S_OK; // of merging and converting
    DWORD blockSize = sizeof(TestBlock);
    HRESULT eventStatus = E_NOTIMPL;
    DWORD oemItems = 0;
    HRESULT pagesStatus = S_OK;
    bool addPages = true; // as a plug-in whose other sheet is still open does not
    // Run at PSN_APPLY of its page and at the second CommonUIProp, with the sheet's own parameters.
    void (*onItems)(OEMCUIPPARAM* param, IPrintOemDriverUI* helper) = nullptr;
    void (*onApply)(OEMCUIPPARAM* param, IPrintOemDriverUI* helper) = nullptr;
    bool setResult = true; // by CPSFUNC_SET_RESULT at PSN_APPLY
    // What its page is to do by itself once it is shown: IDOK, IDCANCEL, or 0 for nothing.
    int press = IDOK;
};
using PFNTESTPLUGINCALLS = const char* (*)();
using PFNTESTPLUGINCONTROL = TestPluginHooks* (*)();
