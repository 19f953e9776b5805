#include "host/document_sheet.h"

#include "host/failure.h"

#include <cstddef>
#include <cstring>

DocumentSheet::DocumentSheet(DOCUMENTPROPERTYHEADER& header)
    : PluginSheet(header.hPrinter, header.pszPrinterName), m_header(header) {
    Driver& driver = TheDriver();
    m_devmode = driver.Make(GivenDevMode(header));
    // Wine's DocumentProperties returns IDOK for a cancelled sheet too, and its caller then uses the buffer:
    // what stands in it must be the settings as they were.
    GiveDevMode(m_devmode, header);
    Settings settings = ReadDevMode(m_devmode, driver.Model(), DefaultSettings(driver.Model())).settings;
    m_options = std::make_unique<OptionItems>(driver.Model(), settings);
    Helper().SetItems(m_options.get(), &driver.Model());

    OEMCUIPPARAM& items = ItemsParam();
    items.pPublicDM = reinterpret_cast<PDEVMODEW>(m_devmode.data());
    items.pOEMDM = driver.Block(m_devmode).data();
    items.pDrvOptItems = m_options->Items().data();
    items.cDrvOptItems = static_cast<DWORD>(m_options->Items().size());
}

// Changes that the user makes after this and then cancels are not part of the result.
void DocumentSheet::Accept() {
    Driver& driver = TheDriver();
    Settings settings = m_options->Read();
    ReadCustomPage(m_devmode, driver.Model(), settings);
    m_accepted = m_devmode;
    driver.Write(m_accepted, settings);
}

void DocumentSheet::Deliver() {
    GiveDevMode(m_accepted, m_header);
}

const DEVMODEW* GivenDevMode(const DOCUMENTPROPERTYHEADER& header) {
    return (header.fMode & DM_IN_BUFFER) != 0 ? header.pdmIn : nullptr;
}

void GiveDevMode(const DevModeBytes& devmode, DOCUMENTPROPERTYHEADER& header) {
    if ((header.fMode & DM_OUT_BUFFER) == 0 || !header.pdmOut)
        return;
    // Wine's client library does not know the buffer's size and gives the dmSize that happens to stand in it,
    // 0 in a cleared one; a caller has asked for the size before. This is the one place where a caller is
    // trusted with a length.
    constexpr std::size_t kSizeEnd = offsetof(DEVMODEW, dmSize) + sizeof(WORD);
    bool told = header.cbOut != 0 && (header.cbOut < kSizeEnd || header.cbOut != header.pdmOut->dmSize);
    if (told && header.cbOut < devmode.size())
        throw Failure("The caller's buffer is smaller than a whole DEVMODE.");
    std::memcpy(header.pdmOut, devmode.data(), devmode.size());
    header.cbOut = static_cast<DWORD>(devmode.size());
}
