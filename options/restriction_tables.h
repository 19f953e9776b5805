// What the device cannot do together, as tables of option indices.
//
// A table is addressed by its flat index: an index beyond its dimension reads what stands at that place of
// the table, so Punch 7 reads column 0 of the next row. A place outside the table holds 0. Any int is a
// possible index.
#pragma once

#include <cstdint>

namespace restriction_table {

// True where the entry is a conflict. The dimensions are those of the arguments, in their order.
bool FinishingConflictTable(std::int32_t fold, std::int32_t stapleMode, std::int32_t punch);  // 11, 22, 7
bool StapleMixTable(std::int32_t stapleMode, std::int32_t mixSizePrint);                      // 22, 2
bool PunchMixTable(std::int32_t punch, std::int32_t mixSizePrint);                            // 8, 2
bool FoldMixTable(std::int32_t fold, std::int32_t mixSizePrint);                              // 12, 2
bool HolesConflictTable(std::int32_t fold, std::int32_t stapleMode, std::int32_t punchHoles); // 11, 22, 5
bool MediaConflictTable(std::int32_t duplex, std::int32_t paperType, std::int32_t weight);    // 2, 54, 11
bool SpotColorConflictTable(std::int32_t colorMode, std::int32_t spotColorCorrection);        // 2, 2
bool TwoColorConflictTable(std::int32_t colorMode, std::int32_t twoColorPressSimulation);     // 2, 2
bool ImpositionConflictTable(std::int32_t printPaperSize, std::int32_t impositionMode,
                             std::int32_t impositionCustomMode); // 50, 3, 3

// The punch unit's number for a pair of settings, 0 for no punch; 4 by 6. `fold` matters only for the places
// behind the table.
int PunchComboTable(std::int32_t punchHoles, std::int32_t punch, std::int32_t fold);

} // namespace restriction_table
