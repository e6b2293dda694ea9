#include <HYGRION/NamedSet.h>

#include <KOR/Exception.h>
#include <KOR/Numbers.h>
#include <KOR/Xml.h>

namespace HYGRION::detail {

namespace {

[[noreturn]] void throwInvalidValue(const TiXmlElement & element, const NamedValueTexts & texts,
                                    const KOR::Exception & failure) {
    const KOR::Exception cause = KOR::xml::located(element, failure);
    if (texts.invalidValue.empty())
        throw KOR::Exception(cause);
    throw KOR::Exception(cause, KOR::text(texts.invalidValue, readName(element)), std::string(texts.where));
}

template <typename Read> void guarded(const TiXmlElement & element, const NamedValueTexts & texts, const Read & read) {
    try {
        read();
    } catch (const KOR::Exception & ex) {
        throwInvalidValue(element, texts, ex);
    }
}

} // namespace

std::string readName(const TiXmlElement & element) {
    if (auto name = KOR::xml::attribute(element, "name"))
        return *name;
    if (element.ValueStr().starts_with("KOR:"))
        throw KOR::Exception(
            KOR::xml::withLine(element, KOR::text("Missing 'name' attribute in %1 element.", element.ValueStr())),
            "[NamedSet::readXML]");
    return element.ValueStr();
}

void throwUnknownName(const TiXmlElement & element, const NamedValueTexts & texts, const KOR::Exception & failure) {
    const KOR::Exception cause = KOR::xml::located(element, failure);
    if (texts.unknownName.empty())
        throw KOR::Exception(cause);
    throw KOR::Exception(cause, KOR::text(texts.unknownName, readName(element)), std::string(texts.where));
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
    guarded(element, texts, [&] { value = {readName(element), KOR::string2val<int>(KOR::xml::text(element))}; });
}

} // namespace HYGRION::detail
