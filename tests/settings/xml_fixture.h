// A document of the build's XML layer, and a folder for its files that goes with the test.
#pragma once

#include "settings/xml_document.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <initializer_list>
#include <iterator>
#include <map>
#include <memory>
#include <random>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

class XmlTest : public testing::Test {
  protected:
    XmlTest() : m_document(layer.CreateDocument()), document(*m_document) {
        // Programs of several builds may run at once.
        do {
            folder = std::filesystem::temp_directory_path();
            folder /= "zr_xml_" + std::to_string(std::random_device()());
        } while (!std::filesystem::create_directory(folder));
    }
    ~XmlTest() override {
        std::error_code ignored;
        std::filesystem::remove_all(folder, ignored);
    }

    // A path in the folder; the name is in the ANSI code page.
    std::string PathOf(std::string_view name) const {
        const char separator = std::filesystem::path::preferred_separator == '/' ? '/' : '\\';
        return folder.string() + separator + std::string(name);
    }
    std::string Write(std::string_view name, std::string_view content) const {
        std::ofstream file(PathOf(name), std::ios::binary);
        file << content;
        file.close();
        EXPECT_TRUE(file.good());
        return PathOf(name);
    }
    static std::string Content(const std::string& path) {
        std::ifstream file(path, std::ios::binary);
        return {std::istreambuf_iterator<char>(file), {}};
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
    std::filesystem::path folder;
};
