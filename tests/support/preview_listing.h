// The listings of the preview's layers and tables in tests/data.
#pragma once

#include <fstream>
#include <map>
#include <sstream>
#include <string>
#include <tuple>
#include <vector>

struct ListedLayer {
    int layer;
    int bitmap;
    int x;
    int y;
    std::string size; // "120x120x24"
    bool reachable;
};

inline std::vector<ListedLayer> ListedLayers() {
    std::ifstream file(ZR_TEST_DATA_DIR "/preview_layers.tsv");
    std::string line;
    std::getline(file, line); // the columns' names
    std::vector<ListedLayer> layers;
    while (std::getline(file, line)) {
        std::istringstream fields(line);
        ListedLayer& row = layers.emplace_back();
        std::string reachable;
        fields >> row.layer >> row.bitmap >> row.x >> row.y >> row.size >> reachable;
        row.reachable = reachable == "yes";
    }
    return layers;
}

struct ListedTables {
    std::map<std::tuple<int, int, int>, std::vector<int>> sheets; // by N-up, orientation and sheet
    std::map<std::tuple<bool, int, int>, int> punch;              // by turned, holes and punch
    std::map<std::tuple<bool, int>, int> staples;                 // by turned and staple mode
    std::map<std::tuple<bool, int>, int> bookletStaples;
    std::map<std::tuple<int, int>, int> farStaple; // by row and staple mode
    std::map<std::tuple<int, int>, int> farPunch;  // by row and punch
};

inline ListedTables ReadListedTables() {
    std::ifstream file(ZR_TEST_DATA_DIR "/preview_tables.tsv");
    std::string line;
    std::getline(file, line);
    ListedTables tables;
    while (std::getline(file, line)) {
        std::istringstream fields(line);
        std::string table, word;
        int first = 0, second = 0, third = 0;
        fields >> table;
        if (table == "sheet") {
            fields >> first >> second >> third;
            std::vector<int>& triple = tables.sheets[{first, second, third}];
            for (int layer; fields >> layer;)
                triple.push_back(layer);
        } else if (table == "punch") {
            fields >> word >> first >> second >> third;
            tables.punch[{word == "turned", first, second}] = third;
        } else if (table == "side") {
            fields >> first >> word >> second >> third;
            (word == "staple" ? tables.farStaple : tables.farPunch)[{first, second}] = third;
        } else {
            fields >> word >> first >> second;
            (table == "staple" ? tables.staples : tables.bookletStaples)[{word == "turned", first}] = second;
        }
    }
    return tables;
}
