// What stands for an element that a favourite file lacks, so that a file of an older format has usable
// values.
#pragma once

#include <string>
#include <string_view>

// Replaces `text`, the text of an element of this name, where its check does not accept it; a name without a
// check accepts any. An element that is missing has an empty text here, which counts as the number 0, so a
// default takes effect only where 0 is out of range.
void CheckValue(std::string_view longName, std::string& text);
