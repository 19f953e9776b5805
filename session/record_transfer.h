// The moves of the settings between the private DEVMODE and the store. A record that comes in may hold
// anything: its text ends at the NUL or at the field's width.
#pragma once

#include "oemps/devmode.h"
#include "session/single_values.h"

#include <cstdint>
#include <span>

// Sends every field that has a named value to the store: the profile first, then in the record's order. The
// paper fields stay behind, since their unit changes on the way.
void LoadStoreFromRecord(const PrivateDevMode& record);

// Sends the few that are sent a second time once the printer is known.
void LoadStoreAgain(const PrivateDevMode& record);

// A named value that comes back to the record by its route id.
struct RoutedValue {
    int id;
    std::uint32_t (*read)(); // a signed value as its bits
};

// All of them, in the order in which they are applied.
std::span<const RoutedValue> RoutedValues();

// Writes what has no route into the record: all text but the one-way fields, and the numbers stored straight.
// Text is cut to its field. The job's name comes last.
void SaveUnroutedValues(PrivateDevMode& record, single_value::Scratch scratch);
