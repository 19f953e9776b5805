// The rows of a list of paper types.
#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string>

class CProfileInfo;

// From a value of the paper type keyword to the number of its row and back; nothing where there is none.
std::optional<int> RowOfPaperType(std::uint32_t paperType);
std::optional<int> PaperTypeOfRow(int row);

// Puts the names that the device has given to its custom papers in the place of the built-in ones. `count`
// custom papers follow each other, from the row on that stands for the first one.
void PutCustomPaperNames(std::span<std::string> rows, int paperTypeKeyword, int count,
                         const CProfileInfo& profile);
