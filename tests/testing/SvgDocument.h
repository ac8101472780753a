#pragma once

#include <map>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

/// An element of an SVG document, which is taken apart as strictly as an XML reader does: what is not well
/// formed throws.
struct SvgElement
{
    std::string tag;
    std::map<std::string, std::string> attributes;
    std::string text; ///< of its own, entities replaced
    std::vector<SvgElement> children;

    std::string operator[](const std::string& name) const
    {
        const auto found = attributes.find(name);
        return found == attributes.end() ? "" : found->second;
    }
    /// The numbers of an attribute, whatever stands between them.
    std::vector<double> Numbers(const std::string& name) const
    {
        std::vector<double> numbers;
        const std::string all = (*this)[name];
        for (std::size_t at = 0, length = 0;
             (at = all.find_first_of("-.0123456789", at)) != std::string::npos; at += length)
            numbers.push_back(std::stod(all.substr(at), &length));
        return numbers;
    }
    double Number(const std::string& name) const { return Numbers(name).at(0); }
    /// Its children where that attribute has that value.
    std::vector<SvgElement> With(const std::string& name, const std::string& value) const
    {
        std::vector<SvgElement> found;
        for (const SvgElement& child : children)
            if (child[name] == value)
                found.push_back(child);
        return found;
    }
    std::vector<SvgElement> Of(const std::string& kind) const { return With("class", kind); }
    /// The annotation of that name.
    SvgElement Group(const std::string& name) const { return With("data-name", name).at(0); }
    /// Its tag and class, and in brackets those of each child.
    std::string Outline() const
    {
        std::string outline = tag + " " + (*this)["class"];
        for (const SvgElement& child : children)
            outline += "(" + child.Outline() + ")";
        return outline;
    }
};

/// Reads a document.
class SvgReader
{
public:
    static SvgElement Read(std::string_view text)
    {
        SvgReader reader{text};
        reader.Expect("<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n");
        SvgElement root = reader.Element();
        reader.Expect("\n");
        Require(reader.rest_.empty());
        return root;
    }

private:
    explicit SvgReader(std::string_view text) : rest_(text) {}

    static void Require(bool holds)
    {
        if (!holds)
            throw std::runtime_error("SVG is not well formed");
    }
    bool Skip(std::string_view start)
    {
        const bool there = rest_.starts_with(start);
        rest_.remove_prefix(there ? start.size() : 0);
        return there;
    }
    void Expect(std::string_view start) { Require(Skip(start)); }
    std::string Until(std::string_view ends)
    {
        const std::string taken(rest_.substr(0, rest_.find_first_of(ends)));
        rest_.remove_prefix(taken.size());
        return taken;
    }
    static std::string Plain(std::string text)
    {
        static const std::map<std::string, char> ENTITIES = {
            {"&lt;", '<'}, {"&gt;", '>'}, {"&quot;", '"'}, {"&amp;", '&'}};
        for (const char letter : text)
            Require(static_cast<unsigned char>(letter) >= 0x20 || letter == '\n');
        for (std::size_t at = 0; (at = text.find('&', at)) != std::string::npos; ++at)
        {
            const auto entity = ENTITIES.find(text.substr(at, text.find(';', at) + 1 - at));
            Require(entity != ENTITIES.end());
            text.replace(at, entity->first.size(), 1, entity->second);
        }
        return text;
    }
    SvgElement Element()
    {
        SvgElement element;
        Expect("<");
        element.tag = Until(" />");
        while (Skip(" "))
        {
            const std::string name = Until("=");
            Expect("=\"");
            Require(element.attributes.emplace(name, Plain(Until("\"<"))).second);
            Expect("\"");
        }
        if (Skip("/>"))
            return element;
        Expect(">");
        for (;;)
        {
            element.text += Plain(Until("<"));
            if (Skip("</"))
            {
                Expect(element.tag + ">");
                return element;
            }
            element.children.push_back(Element());
        }
    }

    std::string_view rest_;
};
