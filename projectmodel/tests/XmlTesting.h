#pragma once

#include <KOR/Exception.h>
#include <KOR/Xml.h>

#include <gtest/gtest.h>

#include <string>

/// What the tests of readers and writers share.
namespace testing_xml {

/// A parsed document; its root is the element to read.
class Parsed {
public:
    explicit Parsed(const std::string & content) {
        const auto error = KOR::xml::parse(content, m_document);
        EXPECT_FALSE(error.has_value()) << (error ? error->description : "") << '\n' << content;
    }
    const TiXmlElement & root() const { return *m_document.RootElement(); }

private:
    TiXmlDocument m_document;
};

template <typename Item> Item read(const std::string & content) {
    Item item;
    item.readXML(Parsed(content).root());
    return item;
}

/// The exception of \p run; a test failure and an empty story if there is none.
template <typename Run> KOR::Exception caught(const Run & run) {
    try {
        run();
    } catch (const KOR::Exception & ex) {
        return ex;
    }
    ADD_FAILURE() << "nothing was thrown";
    return {"", ""};
}

/// What the item writes, below a root element "Root", without the declaration.
template <typename Item> std::string written(const Item & item) {
    TiXmlDocument document;
    TiXmlElement & root = *document.LinkEndChild(new TiXmlElement("Root"))->ToElement();
    item.writeXML(root);
    return KOR::xml::print(document);
}

/// The message without the line in front of it.
inline std::string withoutLine(const std::string & message) {
    const std::size_t colon = message.starts_with("Error in XML file, line ") ? message.find(": ") : std::string::npos;
    return colon == std::string::npos ? message : message.substr(colon + 2);
}

} // namespace testing_xml
