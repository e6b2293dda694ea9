#include <HYGRION/ModelSettingsSalt.h>

#include "XmlParts.h"

#include <KOR/Strings.h>

namespace HYGRION {

namespace {

constexpr xml::ElementTexts TEXTS{
    .where = "[ModelSettingsSalt::readXML]",
    .missingAttr = {},
    .unknownTag = "Unknown element '%1' in 'ModelSettingsSalt' section.",
    .wrapping = {},
    .inChild = "Invalid format of xml element '%1' in section 'ModelSettingsSalt'",
    .inChildCause = "%1\nInvalid format of xml element '%2' in section 'ModelSettingsSalt'",
};

} // namespace

void ModelSettingsSalt::readXML(const TiXmlElement & element) {
    ModelSettingsSalt read;
    xml::readElement(element, TEXTS, [&read](const xml::ElementReader & reader) {
        reader.children({
            xml::once("SaltDatabase", xml::into(read.m_saltDatabase)),
            xml::once("SaltSpeciesIDs",
                      [&](const TiXmlElement & child) {
                          const std::string ids = KOR::xml::text(child);
                          for (const std::string_view id : KOR::words(ids))
                              read.m_saltSpeciesIDs.emplace_back(id);
                      }),
        });
    });
    *this = std::move(read);
}

void ModelSettingsSalt::writeXML(TiXmlElement & parent) const {
    if (*this == ModelSettingsSalt())
        return;
    TiXmlElement & element = xml::appendElement(parent, "ModelSettingsSalt");
    xml::appendGiven(element, "SaltDatabase", m_saltDatabase.str());
    std::string ids;
    for (const std::string & id : m_saltSpeciesIDs)
        ids += (ids.empty() ? "" : " ") + id;
    xml::appendGiven(element, "SaltSpeciesIDs", ids);
}

} // namespace HYGRION
