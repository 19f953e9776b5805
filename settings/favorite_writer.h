// Building the document of a favourite file.
#pragma once

#include "settings/setting_info.h"
#include "settings/xml_document.h"

// Fills an empty document. False, with a log line of the place that failed and one that names the value, if a
// node can't be made or appended.
bool WriteFavoriteDocument(const CFavoriteSetting& setting, XmlDocument& document);

// Appends the element PrintOption with its children to `root`. False as above.
bool WriteXmlPrintOption(const CFavoriteSetting& setting, XmlDocument& document, XmlNode& root);
