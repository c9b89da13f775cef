#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace tarvix::custom {

// An element with a text and elements in it; attributes are passed over.
struct XmlElement {
    std::string name;
    std::string text; // its own, entities decoded, blanks at the ends off
    std::vector<XmlElement> children;

    const XmlElement* Find(std::string_view child) const;
    // The text of the first child of that name; empty when there is none.
    std::string_view TextOf(std::string_view child) const;
};

// The document's outermost element, of any bytes: what is no well-formed part is passed over, at
// most 20,000 elements are taken, and those deeper than 16 are left out. Without a name when there
// is none.
XmlElement ParseXml(std::string_view bytes);

} // namespace tarvix::custom
