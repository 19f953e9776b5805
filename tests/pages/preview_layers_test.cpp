#include "pages/preview_layers.h"
#include "tests/support/preview_listing.h"

#include <gtest/gtest.h>

#include <limits>
#include <random>
#include <set>

namespace {

using Layers = std::vector<int>;

const ListedTables& Tables() {
    static const ListedTables tables = ReadListedTables();
    return tables;
}

// A table's entry, 0 where it has none.
template <typename Key>
int Entry(const std::map<Key, int>& table, const Key& key) {
    const auto found = table.find(key);
    return found == table.end() ? 0 : found->second;
}

// An index that no table has stands for every value that is out of range.
int Index(std::uint32_t value) {
    return value < 1000 ? static_cast<int>(value) : 1000;
}

// The layers as the listed tables have them.
Layers Expected(const PreviewSettings& settings) {
    const int nup = Index(settings.nup);
    const int orientation = Index(settings.pageOrientation);
    const int staple = Index(settings.stapleMode);
    const int punch = Index(settings.punch);
    const int duplex = Index(settings.duplexMode);
    bool turned = orientation != 0;
    if (nup == 1 || nup == 3)
        turned = !turned;

    Layers layers;
    const auto addSheet = [&](int sheet) {
        const auto triple = Tables().sheets.find({nup, orientation, sheet});
        if (triple == Tables().sheets.end())
            return;
        layers.insert(layers.end(), triple->second.begin(), triple->second.end());
        if (settings.colorMode == 0)
            layers.pop_back();
    };
    addSheet(0);
    if (punch != 0 && nup != 6) {
        if (const int layer = Entry(Tables().punch, {turned, Index(settings.punchHoles), punch}))
            layers.push_back(layer);
    }
    if (staple != 0) {
        const auto& staples = nup == 6 ? Tables().bookletStaples : Tables().staples;
        if (const int layer = Entry(staples, {turned, staple}))
            layers.push_back(layer);
    }
    if (duplex != 0) {
        const int row = duplex - 1 + (turned ? 2 : 0);
        const bool far =
            Entry(Tables().farStaple, {row, staple}) == 1 || Entry(Tables().farPunch, {row, punch}) == 1;
        addSheet(duplex + (far ? 2 : 0));
    }
    return layers;
}

Layers Composed(const PreviewSettings& settings) {
    const PreviewLayers picture = ComposePreview(settings);
    return {picture.List().begin(), picture.List().end()};
}

template <typename Visit>
void ForAllSettings(Visit&& visit) {
    PreviewSettings s;
    for (s.nup = 0; s.nup < 7; ++s.nup)
        for (s.pageOrientation = 0; s.pageOrientation < 3; ++s.pageOrientation)
            for (s.duplexMode = 0; s.duplexMode < 5; ++s.duplexMode)
                for (s.stapleMode = 0; s.stapleMode < 22; ++s.stapleMode)
                    for (s.punch = 0; s.punch < 6; ++s.punch)
                        for (s.punchHoles = 0; s.punchHoles < 5; ++s.punchHoles)
                            for (s.colorMode = 0; s.colorMode < 2; ++s.colorMode)
                                visit(s);
}

std::string Describe(const PreviewSettings& s) {
    std::ostringstream text;
    text << "N-up " << s.nup << " duplex " << s.duplexMode << " colour " << s.colorMode << " orientation "
         << s.pageOrientation << " staple " << s.stapleMode << " holes " << s.punchHoles << " punch "
         << s.punch;
    return text.str();
}

TEST(PreviewLayers, TheListingsAreWhole) {
    EXPECT_EQ(ListedLayers().size(), 417u);
    EXPECT_EQ(Tables().sheets.size(), 105u);
    EXPECT_EQ(Tables().punch.size(), 60u);
    EXPECT_EQ(Tables().staples.size(), 44u);
    EXPECT_EQ(Tables().bookletStaples.size(), 44u);
    EXPECT_EQ(Tables().farStaple.size(), 80u);
    EXPECT_EQ(Tables().farPunch.size(), 20u);
}

TEST(PreviewLayers, EveryLayerHasItsBitmapAndPosition) {
    const std::vector<ListedLayer> listed = ListedLayers();
    const std::span<const LayerBitmap> bitmaps = LayerBitmaps();
    ASSERT_EQ(bitmaps.size(), listed.size());
    for (std::size_t row = 0; row < listed.size(); ++row) {
        EXPECT_EQ(bitmaps[row].layer, listed[row].layer);
        EXPECT_EQ(bitmaps[row].bitmap, listed[row].bitmap) << listed[row].layer;
        EXPECT_EQ(bitmaps[row].x, listed[row].x) << listed[row].layer;
        EXPECT_EQ(bitmaps[row].y, listed[row].y) << listed[row].layer;
    }
}

TEST(PreviewLayers, ALayerIsFoundByItsNumberWhereItIsInUse) {
    std::map<int, ListedLayer> listed;
    for (const ListedLayer& row : ListedLayers())
        listed[row.layer] = row;
    for (int layer = -10; layer < 1200; ++layer) {
        const std::optional<LayerBitmap> found = FindLayerBitmap(layer);
        ASSERT_EQ(found.has_value(), listed.contains(layer)) << layer;
        if (found) {
            EXPECT_EQ(found->layer, layer);
            EXPECT_EQ(found->bitmap, listed[layer].bitmap);
        }
    }
    EXPECT_FALSE(FindLayerBitmap(std::numeric_limits<int>::min()));
    EXPECT_FALSE(FindLayerBitmap(std::numeric_limits<int>::max()));
}

TEST(PreviewLayers, TellingRowsOfTheLayerTable) {
    const auto row = [](int layer) {
        const LayerBitmap found = FindLayerBitmap(layer).value_or(LayerBitmap{});
        return std::tuple(found.bitmap, found.x, found.y);
    };
    EXPECT_EQ(row(1), std::tuple(7001, 0, 18));
    EXPECT_EQ(row(326), std::tuple(7326, 0, 18));
    EXPECT_EQ(row(649), std::tuple(7647, 0, 18));
    EXPECT_EQ(row(668), std::tuple(7666, 0, 4));
    EXPECT_EQ(row(916), std::tuple(7916, 32, 49));
    EXPECT_EQ(row(930), std::tuple(7930, 42, 104));
    EXPECT_EQ(row(1078), std::tuple(8078, 0, 18));
    EXPECT_EQ(row(1079), std::tuple(8080, 0, 18));
    EXPECT_EQ(row(1086), std::tuple(8085, 0, 18));
}

TEST(PreviewLayers, AllCombinationsAreComposedAsTheTablesSay) {
    int combinations = 0;
    ForAllSettings([&](const PreviewSettings& settings) {
        ++combinations;
        ASSERT_EQ(Composed(settings), Expected(settings)) << Describe(settings);
    });
    EXPECT_EQ(combinations, 7 * 3 * 5 * 22 * 6 * 5 * 2);
}

TEST(PreviewLayers, ExactlyTheListedLayersAreReached) {
    std::set<int> reached, listed;
    ForAllSettings([&](const PreviewSettings& settings) {
        const Layers layers = Composed(settings);
        reached.insert(layers.begin(), layers.end());
    });
    for (const ListedLayer& row : ListedLayers()) {
        if (row.reachable)
            listed.insert(row.layer);
    }
    reached.erase(0);
    EXPECT_EQ(reached, listed);
}

TEST(PreviewLayers, AnyNumberInTheBankIsComposedWithoutFail) {
    std::mt19937 random(7);
    const auto value = [&](std::uint32_t rows) -> std::uint32_t {
        return random() % 3 ? random() % (rows + 3) : random();
    };
    for (int i = 0; i < 100000; ++i) {
        const PreviewSettings settings{.nup = value(7),
                                       .duplexMode = value(5),
                                       .colorMode = value(2),
                                       .pageOrientation = value(3),
                                       .stapleMode = value(22),
                                       .punchHoles = value(5),
                                       .punch = value(6)};
        ASSERT_EQ(Composed(settings), Expected(settings)) << Describe(settings);
    }
}

TEST(PreviewLayers, TheGreatestNumbersDrawNothing) {
    constexpr std::uint32_t kGreatest = std::numeric_limits<std::uint32_t>::max();
    EXPECT_EQ(Composed({kGreatest, kGreatest, kGreatest, kGreatest, kGreatest, kGreatest, kGreatest}),
              Layers());
}

TEST(PreviewLayers, TheThirdLayerOfASheetIsForColorOnly) {
    EXPECT_EQ(Composed({.colorMode = 0}), (Layers{1, 11}));
    EXPECT_EQ(Composed({.colorMode = 1}), (Layers{1, 11, 12}));
    EXPECT_EQ(Composed({.colorMode = 7}), (Layers{1, 11, 12}));
}

TEST(PreviewLayers, ComeAsFrontSheetPunchStapleAndDuplexSheet) {
    EXPECT_EQ(Composed({.duplexMode = 1, .colorMode = 1, .stapleMode = 1, .punchHoles = 1, .punch = 1}),
              (Layers{1, 11, 12, 645, 678, 5, 17, 43}));
}

TEST(PreviewLayers, AZeroOfATripleStandsInTheList) {
    EXPECT_EQ(Composed({.duplexMode = 4, .colorMode = 1}), (Layers{1, 11, 12, 6, 23, 0}));
    EXPECT_EQ(Composed({.nup = 6, .colorMode = 1}), (Layers{911, 0, 913}));
}

TEST(PreviewLayers, ABookletShowsNoDuplexSheetAndNoPunch) {
    for (std::uint32_t duplex = 0; duplex < 5; ++duplex) {
        Layers layers = Composed({.nup = 6, .duplexMode = duplex, .punchHoles = 2, .punch = 1});
        std::erase(layers, 0);
        EXPECT_EQ(layers, Layers{911}) << duplex;
    }
}

TEST(PreviewLayers, ABookletShowsSaddleStaplesOnly) {
    for (std::uint32_t staple = 0; staple < 22; ++staple) {
        const bool saddle = staple >= 10 && staple <= 12;
        EXPECT_EQ(Composed({.nup = 6, .stapleMode = staple}),
                  saddle ? (Layers{911, 0, 916}) : (Layers{911, 0}));
        EXPECT_EQ(Composed({.nup = 6, .pageOrientation = 2, .stapleMode = staple}),
                  saddle ? (Layers{932, 933, 937}) : (Layers{932, 933}));
    }
}

TEST(PreviewLayers, ThePictureIsTurnedWhereTheOrientationIsNotUprightAndTheOtherWayFor2And6Up) {
    for (const std::uint32_t nup : {0, 2, 4, 5, 6}) {
        EXPECT_FALSE(IsTurnedPicture(nup, 0)) << nup;
        EXPECT_TRUE(IsTurnedPicture(nup, 1)) << nup;
        EXPECT_TRUE(IsTurnedPicture(nup, 2)) << nup;
    }
    for (const std::uint32_t nup : {1, 3}) {
        EXPECT_TRUE(IsTurnedPicture(nup, 0)) << nup;
        EXPECT_FALSE(IsTurnedPicture(nup, 1)) << nup;
        EXPECT_FALSE(IsTurnedPicture(nup, 2)) << nup;
    }
}

TEST(PreviewLayers, SixUpOnARotatedPageIsStapledAsAnUprightPicture) {
    for (const std::uint32_t orientation : {1, 2})
        EXPECT_EQ(Composed({.nup = 3, .pageOrientation = orientation, .stapleMode = 1}).back(), 678);
    EXPECT_EQ(Composed({.nup = 3, .pageOrientation = 0, .stapleMode = 1}).back(), 679);
}

TEST(PreviewLayers, AStapleOnTheFarSideSelectsTheSheetTwoFurther) {
    EXPECT_EQ(Composed({.duplexMode = 1, .stapleMode = 1}), (Layers{1, 11, 678, 5, 17}));
    EXPECT_EQ(Composed({.duplexMode = 1, .stapleMode = 2}), (Layers{1, 11, 682, 4, 19}));
    EXPECT_EQ(Composed({.duplexMode = 2, .stapleMode = 3}), (Layers{1, 11, 674, 6, 23}));
}

TEST(PreviewLayers, APunchOnTheFarSideSelectsTheSheetTwoFurther) {
    EXPECT_EQ(Composed({.duplexMode = 1, .punchHoles = 1, .punch = 2}), (Layers{1, 11, 646, 4, 19}));
    EXPECT_EQ(Composed({.duplexMode = 2, .punchHoles = 1, .punch = 4}), (Layers{1, 11, 648, 6, 23}));
}

TEST(PreviewLayers, APunchWithoutHolesStillSelectsTheSheet) {
    EXPECT_EQ(Composed({.duplexMode = 1, .punchHoles = 0, .punch = 2}), (Layers{1, 11, 4, 19}));
}

TEST(PreviewLayers, ATurnedPictureReadsThePunchTableThreeRowsFurtherDown) {
    EXPECT_EQ(PunchLayer(true, 1, 0), 664);
    EXPECT_EQ(PunchLayer(true, 1, 1), 650);
    EXPECT_EQ(PunchLayer(false, 1, 3), 664);
    EXPECT_EQ(PunchLayer(false, 1, 4), 650);
    EXPECT_EQ(PunchLayer(false, 1, 0), 0);
}

TEST(PreviewLayers, FourHolesInATurnedPictureHaveNoLayer) {
    for (std::uint32_t punch = 0; punch < 6; ++punch)
        EXPECT_EQ(PunchLayer(true, punch, 4), 0) << punch;
}

TEST(PreviewLayers, TheSideTablesHaveNothingForTheLastStaplesAndTheLastPunch) {
    EXPECT_EQ(Composed({.duplexMode = 1, .stapleMode = 20}), (Layers{1, 11, 1081, 5, 17}));
    EXPECT_EQ(Composed({.duplexMode = 1, .stapleMode = 21}), (Layers{1, 11, 1083, 5, 17}));
    EXPECT_EQ(Composed({.duplexMode = 1, .punchHoles = 1, .punch = 5}), (Layers{1, 11, 645, 5, 17}));
}

TEST(PreviewLayers, ADuplexModeBehindTheSideTablesHasNoFarSide) {
    EXPECT_EQ(Composed({.duplexMode = 3, .pageOrientation = 1, .stapleMode = 2}),
              (Layers{2, 25, 683, 10, 37}));
    EXPECT_EQ(Composed({.duplexMode = 4, .pageOrientation = 1, .stapleMode = 2}),
              (Layers{2, 25, 683, 8, 33}));
}

TEST(PreviewLayers, ASheetBehindTheLastOneIsNotThere) {
    EXPECT_EQ(Composed({.duplexMode = 3, .stapleMode = 3}), (Layers{1, 11, 674}));
    EXPECT_EQ(Composed({.duplexMode = 4, .stapleMode = 2}), (Layers{1, 11, 682}));
    EXPECT_EQ(Composed({.duplexMode = 5}), (Layers{1, 11}));
}

TEST(PreviewLayers, ValuesWithoutARowAddNothing) {
    EXPECT_EQ(Composed({.nup = 7, .duplexMode = 1}), Layers());
    EXPECT_EQ(Composed({.duplexMode = 1, .pageOrientation = 3}), Layers());
    EXPECT_EQ(Composed({.stapleMode = 22}), (Layers{1, 11}));
    EXPECT_EQ(Composed({.punchHoles = 1, .punch = 6}), (Layers{1, 11}));
    EXPECT_EQ(Composed({.punchHoles = 5, .punch = 1}), (Layers{1, 11}));
}

TEST(PreviewLayers, TheTablesGiveNoLayerOutsideThem) {
    EXPECT_EQ(SheetLayers(7, 0, 0), LayerTriple{});
    EXPECT_EQ(SheetLayers(0, 3, 0), LayerTriple{});
    EXPECT_EQ(SheetLayers(0, 0, 5), LayerTriple{});
    EXPECT_EQ(SheetLayers(5, 2, 4), (LayerTriple{8, 318, 321}));
    EXPECT_EQ(StapleLayer(false, 22), 0);
    EXPECT_EQ(BookletStapleLayer(true, 13), 0);
    EXPECT_EQ(PunchLayer(false, 6, 1), 0);
    EXPECT_EQ(PunchLayer(false, 1, 5), 0);
    EXPECT_EQ(PunchLayer(false, 0, std::numeric_limits<std::uint32_t>::max()), 0);
}

} // namespace
