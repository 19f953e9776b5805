// What is saved comes back: random contents in every field that travels.
#include "tests/settings/favorite_fixture.h"
#include "tests/settings/random_text.h"
#include "tests/settings/travelling_fields.h"

#include <algorithm>
#include <limits>
#include <random>

namespace {

#ifdef _WIN32
constexpr int kRounds = 10;
#else
constexpr int kRounds = 40;
#endif

class FavoriteRoundTripTest : public FavoriteTest {
  protected:
    std::uint64_t Random(std::uint64_t below) {
        return std::uniform_int_distribution<std::uint64_t>(0, below - 1)(m_random);
    }

    std::int64_t RandomNumber(const TravellingField& field) {
        if (field.tag == "ONOC")
            return static_cast<std::int64_t>(1 + Random(9999));
        switch (Random(4)) {
        case 0: return static_cast<std::int64_t>(Random(20));
        case 1: return -1;
        case 2: return std::numeric_limits<std::int32_t>::min() + static_cast<std::int64_t>(Random(2));
        default: return static_cast<std::int64_t>(m_random());
        }
    }

    void Fill(CFavoriteSetting& filled) {
        filled.FileVer = static_cast<std::uint32_t>(m_random());
        filled.IotVer = static_cast<std::uint32_t>(m_random());
        filled.CharCode = static_cast<std::uint32_t>(m_random());
        filled.Comment = {};
        filled.PageSize = {};
        std::ranges::copy(RandomText(m_random, 255), filled.Comment.begin());
        std::ranges::copy(RandomText(m_random, 259), filled.PageSize.begin());
        for (const TravellingField& field : fields)
            if (field.IsText())
                field.PutText(filled.PrintOption(), RandomText(m_random, field.field.width - 1));
            else
                field.PutNumber(filled.PrintOption(), RandomNumber(field));
    }

    const std::vector<TravellingField> fields = TravellingFields();

  private:
    std::mt19937_64 m_random{20040};
};

} // namespace

TEST_F(FavoriteRoundTripTest, EveryFieldThatTravelsComesBackByteForByteAndTheFileToo) {
    const std::string first = PathOf("first.pfk");
    const std::string second = PathOf("second.pfk");
    for (int round = 0; round < kRounds; ++round) {
        SCOPED_TRACE(round);
        Fill(setting);
        ASSERT_EQ(manager.SaveFavoriteFromPath(setting, first.c_str()), 1);
        CFavoriteSetting read;
        ASSERT_EQ(manager.LoadFavoriteFromPath(read, first.c_str()), 1);
        for (const TravellingField& field : fields)
            ASSERT_EQ(field.BytesIn(read.PrintOption()), field.BytesIn(setting.PrintOption())) << field.tag;
        ASSERT_EQ(read.FileVer, setting.FileVer);
        ASSERT_EQ(read.IotVer, setting.IotVer);
        ASSERT_EQ(read.CharCode, setting.CharCode);
        ASSERT_EQ(read.Comment, setting.Comment);
        ASSERT_EQ(read.PageSize, setting.PageSize);

        ASSERT_EQ(manager.SaveFavoriteFromPath(read, second.c_str()), 1);
        ASSERT_EQ(Content(second), Content(first));
    }
}

TEST_F(FavoriteRoundTripTest, AFreshFavouriteIsTheSameFileWhenItIsSavedAgain) {
    const std::string first = PathOf("first.pfk");
    const std::string second = PathOf("second.pfk");
    ASSERT_EQ(manager.LoadFavoriteFromPath(setting, Write("empty.pfk", "<Favorite/>").c_str()), 1);
    ASSERT_EQ(manager.SaveFavoriteFromPath(setting, first.c_str()), 1);
    CFavoriteSetting read;
    ASSERT_EQ(manager.LoadFavoriteFromPath(read, first.c_str()), 1);
    ASSERT_EQ(manager.SaveFavoriteFromPath(read, second.c_str()), 1);
    EXPECT_EQ(Content(second), Content(first));
}
