// A document of the build's XML layer, and a folder for its files that goes with the test.
#pragma once

#include "settings/xml_document.h"
#include "tests/support/test_folder.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <initializer_list>
#include <iterator>
#include <map>
#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

class XmlTest : public testing::Test, protected TestFolder {
  protected:
    XmlTest() : m_document(layer.CreateDocument()), document(*m_document) {}

    // What a load of the file answers; false for a file that can't be opened too.
    static bool LoadFile(XmlDocument& into, const std::string& path) {
        const auto file = platform_files::OpenShared(path.c_str());
        EXPECT_TRUE(file) << path;
        return file && into.Load(*file);
    }
    std::size_t CountFiles() const {
        return static_cast<std::size_t>(std::distance(std::filesystem::directory_iterator(folder),
                                                      std::filesystem::directory_iterator()));
    }

    // A document with a root `Favorite` and one child with a text.
    void Build(std::string_view name, std::string_view text) const {
        const XmlNodeOwner declaration =
            document.CreateProcessingInstruction("xml", "version='1.0' encoding='UTF-8'");
        const XmlNodeOwner root = document.CreateElement("Favorite");
        ASSERT_TRUE(declaration && root);
        ASSERT_TRUE(document.AppendChild(*declaration));
        ASSERT_TRUE(document.AppendChild(*root));
        AddElement(*root, name, text);
    }
    void AddElement(XmlNode& parent, std::string_view name, std::string_view text) const {
        const XmlNodeOwner element = document.CreateElement(name);
        const XmlNodeOwner content = document.CreateTextNode(text);
        ASSERT_TRUE(element && content);
        ASSERT_TRUE(document.AppendChild(parent, *element));
        ASSERT_TRUE(document.AppendChild(*element, *content));
    }

    using Pairs = std::vector<std::pair<std::string, std::string>>;

    // Names and texts in the order of the walk.
    static Pairs PairsOf(XmlDocument& walked) {
        Pairs pairs;
        const auto elements = walked.Elements();
        EXPECT_TRUE(elements);
        for (std::size_t index = 0; elements && index < elements->size(); ++index)
            pairs.emplace_back((*elements)[index].name, (*elements)[index].text);
        return pairs;
    }
    // The text of the last element of each name.
    static std::map<std::string, std::string> LastTexts(XmlDocument& walked) {
        std::map<std::string, std::string> last;
        for (auto& [name, text] : PairsOf(walked))
            last[name] = text;
        return last;
    }

    XmlLayer layer;

  private:
    std::unique_ptr<XmlDocument> m_document;

  protected:
    XmlDocument& document;
};
