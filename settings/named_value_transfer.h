// The named values between the store and a print option set. Numbers without a named value that moves, any
// int, change nothing.
#pragma once

#include "settings/Ddb_PrintOption.h"

// From the record's field to the store.
void NamedValueToStore(const ddb::CPrintOptionEx& option, int number);

// From the store to the record's field; a text is cut to the field and sets its flag. A value without a
// getter changes nothing.
void NamedValueFromStore(ddb::CPrintOptionEx& option, int number);

// The standard settings' constant of a named value, to the store or to the record's field. The front cover's
// stock name is not written to the store: it can't be read there, so nobody could put the present one back.
// That no IC card is used goes to the store with the user's name; it can't be read there either, which does
// no harm, since nothing here ever sets it to anything but 0.
void StandardValueToStore(int number);
void StandardValueToRecord(ddb::CPrintOptionEx& option, int number);
