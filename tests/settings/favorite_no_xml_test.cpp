// Favourites where the platform's XML object can't be made, at all or for a moment.
#include "settings/favorite_cache.h"
#include "tests/settings/favorite_directory.h"
#include "tests/settings/favorite_samples.h"
#include "tests/settings/xml_fixture.h"
#include "tests/support/main_log.h"
#include "tests/support/no_xml_object.h"

#include <algorithm>

namespace {

using Names = std::vector<std::string>;

constexpr std::uint32_t kPointerError = 0x80004003;
constexpr char kReason[] = "the XML layer could not make a document";

// The code of the error that the call raises; 0 if it raises none.
template <class Call>
std::uint32_t RaisedBy(Call call) {
    try {
        call();
    } catch (const XmlLayerError& error) {
        return error.Code();
    }
    return 0;
}

class FavoriteNoXml : public XmlTest {
  protected:
    void PutThree() {
        for (const char* name : {"a.pfk", "b.pfk", "c.pfk"})
            directory.Put(name, FavoriteAround(""));
    }
    static std::ptrdiff_t CountLines(const MainLog& log, const std::string& end) {
        return std::ranges::count_if(log.Messages(),
                                     [&](const std::string& line) { return line.ends_with(end); });
    }

    FavoriteDirectory directory;
    CFavoriteFileManager manager{{}};
    CFavoriteSetting setting;
};

} // namespace

TEST_F(FavoriteNoXml, NothingIsListedAndEachFileIsLogged) {
    PutThree();
    const MainLog log;
    const NoXmlObject missing;
    Names names{"before"};
    EXPECT_EQ(manager.GetFindFavoriteFileList(names), 0);
    EXPECT_EQ(names, Names{"before"});
    for (const char* name : {"a.pfk", "b.pfk", "c.pfk"})
        EXPECT_EQ(CountLines(log, "not read: " + directory.Path() + "\\" + name + ": " + kReason), 1) << name;
}

TEST_F(FavoriteNoXml, AFileThatFailsForAMomentLeavesTheOthersListed) {
    PutThree();
    const MainLog log;
    const NoXmlObject missing(1);
    Names names;
    EXPECT_EQ(manager.GetFindFavoriteFileList(names), 1);
    EXPECT_EQ(names.size(), 2u);
    EXPECT_EQ(CountLines(log, kReason), 1);
}

TEST_F(FavoriteNoXml, LoadsAndSavesRaiseTheErrorAndTheOldFileStays) {
    const std::string path = Write("a.pfk", FavoriteAround(""));
    const std::string image = ImageOf(setting);
    const NoXmlObject missing;
    EXPECT_EQ(RaisedBy([&] { manager.LoadFavoriteFromPath(setting, path.c_str()); }), kPointerError);
    EXPECT_EQ(RaisedBy([&] { manager.SaveFavoriteFromPath(setting, path.c_str()); }), kPointerError);
    EXPECT_TRUE(ImageOf(setting) == image);
    EXPECT_EQ(Content(path), FavoriteAround(""));
    EXPECT_EQ(CountFiles(), 1u);
}

TEST_F(FavoriteNoXml, ALoadThatIsRefusedIsFalseAndNoError) {
    ASSERT_TRUE(document.Load(std::string_view("<r/>")));
    {
        const NoXmlObject missing;
        EXPECT_FALSE(document.Load(std::string_view("<!DOCTYPE r><r/>")));
        EXPECT_FALSE(document.Load(std::string_view("<r/>"))) << "there is no object to load into";
        EXPECT_EQ(document.DocumentElement(), nullptr);
        EXPECT_EQ(PairsOf(document), Pairs{});
        EXPECT_EQ(document.CreateElement("r"), nullptr);
        std::string bytes;
        EXPECT_FALSE(document.Serialize(bytes));
    }
    EXPECT_TRUE(document.Load(std::string_view("<r/>")));
}
