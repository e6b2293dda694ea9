#include <HYGRION/NamedSet.h>

#include <KOR/Exception.h>
#include <KOR/Numbers.h>
#include <KOR/Xml.h>

namespace HYGRION::detail {

namespace {

std::string nameOf(const TiXmlElement & element) {
    if (auto name = KOR::xml::attribute(element, "name"))
        return *name;
    if (element.ValueStr().starts_with("KOR:"))
        throw KOR::Exception(
            KOR::xml::withLine(element, KOR::text("Missing 'name' attribute in %1 element.", element.ValueStr())),
            "[NamedSet::readXML]");
    return element.ValueStr();
}

[[noreturn]] void throwInvalidValue(const TiXmlElement & element, const NamedValueTexts & texts,
                                    const KOR::Exception & failure) {
    const KOR::Exception cause = KOR::xml::located(element, failure);
    if (texts.invalidValue.empty())
        throw cause;
    throw KOR::Exception(cause, KOR::text(texts.invalidValue, nameOf(element)), std::string(texts.where));
}

template <typename Read> void guarded(const TiXmlElement & element, const NamedValueTexts & texts, const Read & read) {
    try {
        read();
    } catch (const KOR::Exception & ex) {
        throwInvalidValue(element, texts, ex);
    }
}

} // namespace

int readKey(const TiXmlElement & element, std::string_view category, const NamedValueTexts & texts) {
    const std::string name = nameOf(element);
    try {
        return KeywordList::Enumeration(category, name);
    } catch (const KOR::Exception & ex) {
        const KOR::Exception cause = KOR::xml::located(element, ex);
        if (texts.unknownName.empty())
            throw cause;
        throw KOR::Exception(cause, KOR::text(texts.unknownName, name), std::string(texts.where));
    }
}

void throwTwice(const TiXmlElement & element, const std::string & name, const NamedValueTexts & texts) {
    throw KOR::Exception(KOR::xml::withLine(element, KOR::text("'%1' is given more than once.", name)),
                         std::string(texts.where));
}

void readValue(const TiXmlElement & element, KOR::Parameter & value, const NamedValueTexts & texts) {
    guarded(element, texts, [&] { value.readXML(element); });
}

void readValue(const TiXmlElement & element, KOR::Flag & value, const NamedValueTexts & texts) {
    guarded(element, texts, [&] { value.readXML(element); });
}

void readValue(const TiXmlElement & element, KOR::IntPara & value, const NamedValueTexts & texts) {
    guarded(element, texts, [&] { value = {nameOf(element), KOR::string2val<int>(KOR::xml::text(element))}; });
}

} // namespace HYGRION::detail
