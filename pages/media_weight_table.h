// Which weights a kind of paper can have, in the rows of the list of weights.
#pragma once

#include <cstdint>

// By value and row alike; a row of the list has the number of its value.
struct WeightRows {
    int first = 0;
    int end = 0; // not included; 0 if the paper has no weight
    int defaultRow = 0;

    bool IsEmpty() const { return end == 0; }
    friend bool operator==(const WeightRows&, const WeightRows&) = default;
};

// Of a value of the paper type keyword. One that the table lacks has no weight.
WeightRows WeightRowsOf(int paperType);

// `current` if the paper can have it, else the default.
int ChooseWeight(const WeightRows& rows, std::uint32_t current);
