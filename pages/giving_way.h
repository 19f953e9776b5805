// What gives way when a setting of the standard page or of its dialogs conflicts with another one.
#pragma once

enum class GaveWay {
    Nothing, // the row does not touch the other setting
    Other,   // the other setting has changed; its control is to be shown anew
    Own,     // the caller is to take its own setting back
};

// Moves `keyword`, a KeywordId or an option_item, out of the way of the row `group` (a restriction_group) in
// the Current bank, as far as that row does so.
GaveWay GiveWayTo(int group, int keyword);
