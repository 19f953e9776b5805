// Binding of the driver's items to the keywords.
#pragma once

#include "session/session.h"

#include <span>

// Binds the document-sticky features, which the driver lists as the tail of its tree, by their keyword names;
// fills the Default and Current banks from them and tags each with its keyword.
void BindByName(std::span<OPTITEM> items, SessionBlock& block);

// Binds the items whose tag is that of a public setting.
void BindPublicItems(std::span<OPTITEM> items, SessionBlock& block);
