// A document in memory without a parser: shows its nodes as a file would have them, and fails where a test
// wants it to.
#pragma once

#include "settings/xml_document.h"

#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

class FakeDocument : public XmlDocument {
  public:
    // The step, counted from 1, that fails; each node made and each node appended is one.
    int failingStep = 0;
    int steps = 0;
    // What the walk finds; without elements the walk fails.
    std::optional<XmlElements> elements;
    int walks = 0;

    XmlNodeOwner CreateProcessingInstruction(std::string_view target, std::string_view text) override {
        return Make("<?", Keeps() ? std::string(target).append(" ").append(text) : "", "?>");
    }
    XmlNodeOwner CreateComment(std::string_view text) override { return Make("<!--", text, "-->"); }
    XmlNodeOwner CreateElement(std::string_view name) override {
        return Make("<", name, ">", Keeps() ? std::string("</").append(name).append(">") : "");
    }
    XmlNodeOwner CreateTextNode(std::string_view text) override { return Make("'", text, "'"); }
    bool AppendChild(XmlNode& child) override { return Append(m_root, child); }
    bool AppendChild(XmlNode& parent, XmlNode& child) override {
        return Append(Keeps() ? *static_cast<Node&>(parent).data : m_root, child);
    }

    // Each node on a line of its own, a text in quotation marks.
    std::vector<std::string> Lines() const {
        std::vector<std::string> lines;
        for (const auto& child : m_root.children)
            AddLines(*child, lines);
        return lines;
    }

    XmlNodeOwner DocumentElement() override { return nullptr; }
    std::optional<XmlElements> Elements() override {
        ++walks;
        return elements;
    }
    std::optional<std::vector<std::string>> TextsByTagName(std::string_view) override { return std::nullopt; }
    bool Serialize(std::string&) override { return false; }

  protected:
    bool Parse(std::string_view) override { return false; }
    bool HasDoctype() override { return false; }
    void Clear() noexcept override {}

  private:
    struct Data {
        std::string begin;
        std::string end;
        std::vector<std::shared_ptr<Data>> children;
    };
    struct Node : XmlNode {
        explicit Node(Data made) : data(std::make_shared<Data>(std::move(made))) {}
        std::shared_ptr<Data> data;
    };

    bool Fails() { return ++steps == failingStep; }
    // A document that is to fail shows nothing, so it keeps nothing.
    bool Keeps() const { return failingStep == 0; }
    XmlNodeOwner Make(std::string_view begin, std::string_view text, std::string_view end,
                      std::string_view atEnd = {}) {
        if (Fails())
            return nullptr;
        if (!Keeps())
            return std::make_unique<XmlNode>();
        return std::make_unique<Node>(
            Data{std::string(begin).append(text).append(end), std::string(atEnd), {}});
    }
    bool Append(Data& parent, XmlNode& child) {
        if (Fails())
            return false;
        if (Keeps())
            parent.children.push_back(static_cast<Node&>(child).data);
        return true;
    }
    static void AddLines(const Data& node, std::vector<std::string>& lines) {
        lines.push_back(node.begin);
        for (const auto& child : node.children)
            AddLines(*child, lines);
        if (!node.end.empty())
            lines.push_back(node.end);
    }

    Data m_root;
};
