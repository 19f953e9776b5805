// The store's start.
#pragma once

// Prepares the store and creates the data setting key, in the one order that the store allows. Before it no
// bank or named value may be touched.
void InitializeDataManager();
