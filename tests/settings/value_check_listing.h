// The ranges of numbers that a favourite file's elements are checked against, repeated by hand.
#pragma once

#include <string>
#include <vector>

struct ListedRange {
    std::string name;
    long min;
    long max;
    long value;
};

// Every check of the range form.
inline const std::vector<ListedRange> kListedRanges{
    {"MixSizeFirstPageSize", 1, 16, 2},
    {"MixSizeRotation", 0, 3, 0},
    {"JobMarkNumOfSheets", 3, 100, 3},
    {"AutoJobStartType", 0, 3, 1},
    {"AutoJobStartSpecifiedHour", 0, 23, 12},
    {"AutoJobStartElapsedDays", 0, 999, 0},
    {"AutoJobStartElapsedHours", 0, 23, 1},
    {"CreaseMode", 1, 11, 1},
    {"CreaseNum", 1, 5, 1},
    {"CreasePosition1", 6803, 367597, 6803},
    {"CreasePosition2", 20976, 367597, 20976},
    {"CreasePosition3", 35150, 367597, 35150},
    {"CreasePosition4", 49323, 367597, 49323},
    {"CreasePosition5", 63496, 367597, 63496},
    {"CreasePressureLevel1", 0, 5, 0},
    {"CreasePressureLevel2", 0, 5, 0},
    {"CreasePressureLevel3", 0, 5, 0},
    {"CreasePressureLevel4", 0, 5, 0},
    {"CreasePressureLevel5", 0, 5, 0},
    {"TopAndTailTrimFinishSize", 103181, 179262, 160441},
    {"MinimumLineWidthValue", 0, 10000, 120},
    {"CustomCoverPageNum", 1, 100, 1},
    {"CoverPageTray", 0, 27, 27},
    {"SamplePrintCopyInterval", 1, 9999, 50},
    {"SamplePrintSheetInterval", 1, 65500, 50},
    {"SamplePrintSheetNum", 1, 65500, 1},
    {"Magnification", 100, 10000, 1000},
    {"FormOrigin", 0, 4, 1},
    {"ImpositionFormOrigin", 0, 4, 1},
    {"RecordDivNumOfPages", 1, 9999, 1},
    {"SeparatorsSets", 1, 9999, 1},
    {"MediaTypeWeightValue", 52, 400, 90},
    {"MediaTypeSequence", 2, 255, 2},
    {"PaperTypeCustomNumber", 1, 40, 1},
    {"RepeatExceptionPageNum", 1, 9999, 1},
    {"OffsetUnit", 1, 9999, 1},
    {"NumberOfFoldSheets", 1, 5, 1},
    {"InkWarningAmount", 1, 400, 300},
    {"HairLineWarningPoint", 1, 1000, 90},
    {"QrThreshold", 1, 255, 128},
    {"MemoFontSize", 1, 99, 8},
    {"PaginationFontSize", 1, 99, 10},
    {"ImpositionPaginationFontSize", 1, 99, 10},
    {"LayoutRepeatX", 1, 99, 1},
    {"LayoutRepeatY", 1, 99, 1},
    {"NumberOfFascicle", 1, 999, 16},
    {"MixSizeFirstPageOrientation", 1, 2, 1},
    {"MixSizeMixedPageOrientation", 1, 2, 1},
    {"TopAndTailTrimMode", 1, 2, 1},
    {"CoverPageStkType", 1, 2, 2},
    {"EdgeDensityLevel", 1, 3, 2},
    {"RgbSkinImprovementLevel", 1, 3, 2},
    {"ImageBacklightCorrectionLevel", 1, 3, 2},
    {"GraphicsScreen", 1, 9, 5},
    {"CmykKPreservation", 0, 2, 2},
};
