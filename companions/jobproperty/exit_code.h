// What the program ends with. The plug-in does not read it; scripts and tests do.
#pragma once

namespace jobproperty {

enum class ExitCode : int {
    Done = 0,             // also after Cancel, and a second -start of a sheet
    BadCommandLine = 1,   // nothing was opened
    NoKey = 2,            // -start, -show: the key or a subkey is not there, or the sheet has none any more
    KeyVanished = 3,      // -show: the key went while the window was open; nothing was handed over
    ValuesOutOfRange = 4, // -show: the key still has values that their settings can't have
    NoSheet = 5,          // -start: the sheet's process is not there, or not the one of the id
    NoInstance = 6,       // -exit: nothing runs in the background for this id
    StillRunning = 7,     // -exit: the background instance did not end in time
    AlreadyShown = 8,     // -show: another window edits the same key
    Failed = 9            // the system refused something
};

} // namespace jobproperty
