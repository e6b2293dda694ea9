#include <MM/MaterialIdentification.h>

#include <MM/KeywordList.h>

#include "Lines.h"

#include <KOR/Exception.h>
#include <KOR/Numbers.h>
#include <KOR/Strings.h>

#include <algorithm>
#include <ctime>
#include <iterator>
#include <ostream>

namespace MM {

namespace {

using Ident = MaterialIdentification::Ident;
using Self = MaterialIdentification;

constexpr const char * READ_LINE = "[MaterialIdentification::readLine]";
constexpr const char * SET_FLAGS = "[MaterialIdentification::setFlags]  ";

/// Where the values of the kinds "text" and "integer" live; the rest is told by name.
struct TextMember {
    Ident key;
    std::string Self::*member;
};
constexpr TextMember TEXTS[] = {
    {Ident::INVESTIGATOR,      &Self::m_investigator   },
    {Ident::DATE,              &Self::m_date           },
    {Ident::SAMPLING_DATE,     &Self::m_samplingDate   },
    {Ident::PRODUCTION_DATE,   &Self::m_productionDate },
    {Ident::SAMPLE_ID,         &Self::m_sampleId       },
    {Ident::COUNTRY,           &Self::m_country        },
    {Ident::COPYRIGHT,         &Self::m_copyright      },
    {Ident::U_DIRECTION,       &Self::m_uDirection     },
    {Ident::V_DIRECTION,       &Self::m_vDirection     },
    {Ident::W_DIRECTION,       &Self::m_wDirection     },
    {Ident::SIGNATURE_SOURCE,  &Self::m_signatureSource},
    {Ident::DATA_SHEET_SOURCE, &Self::m_dataSheetSource},
};
struct LanguageMember {
    Ident key;
    KOR::LangString Self::*member;
};
constexpr LanguageMember LANGUAGE_TEXTS[] = {
    {Ident::NAME,       &Self::m_name      },
    {Ident::PRODUCER,   &Self::m_producer  },
    {Ident::PRODUCT_ID, &Self::m_productId },
    {Ident::LABORATORY, &Self::m_laboratory},
    {Ident::COMMENTS,   &Self::m_comments  },
};
struct IntegerMember {
    Ident key;
    std::optional<int> Self::*member;
};
constexpr IntegerMember INTEGERS[] = {
    {Ident::USE_INSTEAD,        &Self::m_useInstead      },
    {Ident::AQUISITION_ID,      &Self::m_acquisitionId   },
    {Ident::FROST_DAMAGE_CHECK, &Self::m_frostDamageCheck},
};

template <typename Row, std::size_t COUNT> const Row * findRow(const Row (&rows)[COUNT], Ident key) {
    for (const Row & row : rows)
        if (row.key == key)
            return &row;
    return nullptr;
}

constexpr Ident WRITE_ORDER[] = {
    Ident::NAME,
    Ident::AQUISITION_ID,
    Ident::PRODUCER,
    Ident::PRODUCT_ID,
    Ident::INVESTIGATOR,
    Ident::LABORATORY,
    Ident::DATE,
    Ident::SAMPLING_DATE,
    Ident::PRODUCTION_DATE,
    Ident::SAMPLE_ID,
    Ident::SAMPLING_METHOD,
    Ident::COUNTRY,
    Ident::FLAGS,
    Ident::USE_INSTEAD,
    Ident::COPYRIGHT,
    Ident::CATEGORY,
    Ident::COLOUR,
    Ident::HATCHING,
    Ident::COMMENTS,
    Ident::DBTYPE,
    Ident::U_DIRECTION,
    Ident::V_DIRECTION,
    Ident::W_DIRECTION,
    Ident::SIGNATURE_SOURCE,
    Ident::QUALITY_FLAGS,
    Ident::DATA_SHEET_SOURCE,
    Ident::FROST_DAMAGE_CHECK,
};
static_assert(std::size(WRITE_ORDER) == indexOf(Ident::FROST_DAMAGE_CHECK) + 1);

constexpr std::string_view EDITIONS[] = {
    "STANDARD",         "MOISTURE_ATLAS",     "EDITION_BASIC",    "EDITION_STUDENT",  "EDITION_RESEARCH",
    "EDITION_PLANNER",  "EDITION_PRODUCER",   "EDITION_HERITAGE", "EDITION_TIMBER",   "EDITION_MASONRY",
    "EDITION_CONCRETE", "EDITION_INSULATION", "EDITION_BOARDS",   "EDITION_COATINGS", "EDITION_FOILS",
    "EDITION_SOILS",    "EDITION_BENCHMARK",  "EDITION_NATIONAL", "EDITION_EUROPE",   "EDITION_WORLD",
};
static_assert(std::size(EDITIONS) == 20);
constexpr std::size_t MAX_EDITIONS = 100; ///< of one material

/// Keywords of files before version 6 for the entries of today.
struct OldKeyword {
    std::string_view word;
    Ident key;
};
constexpr OldKeyword OLD_KEYWORDS[] = {
    {"NAME",           Ident::NAME           },
    {"UNIQUE_ID",      Ident::SAMPLE_ID      },
    {"PRODUCER",       Ident::PRODUCER       },
    {"PRODUCT_ID",     Ident::PRODUCT_ID     },
    {"COLOR",          Ident::COLOUR         },
    {"SAMPLINGDATE",   Ident::SAMPLING_DATE  },
    {"SAMPLINGMETHOD", Ident::SAMPLING_METHOD},
    {"SOURCE",         Ident::LABORATORY     },
    {"INVESTIGATOR",   Ident::INVESTIGATOR   },
    {"MM_ID",          Ident::AQUISITION_ID  },
    {"CATEGORY",       Ident::CATEGORY       },
    {"COMMENTS",       Ident::COMMENTS       },
    {"DBTYPE",         Ident::DBTYPE         },
    {"DATE",           Ident::DATE           },
    {"COUNTRY",        Ident::COUNTRY        },
};
struct OldMessage {
    std::string_view word, message;
};
constexpr OldMessage OBSOLETE_KEYWORDS[] = {
    {"CLASSIFICATION",   "CLASSIFICATION is obsolete!"                       },
    {"MASTERFORMAT1",    "MASTERFORMAT1 is obsolete!"                        },
    {"MASTERFORMAT2",    "MASTERFORMAT2N is obsolete!"                       },
    {"MASTERFORMAT3",    "MASTERFORMAT3 is obsolete!"                        },
    {"DEPRICATED_STATE", "DEPRICATED_STATE is read no more, see USE_INSTEAD."},
};

template <typename Integer> Integer integer(std::string_view value, std::string_view keyword) {
    if (const auto number = KOR::parseInteger<Integer>(value))
        return *number;
    throw KOR::Exception(invalidValue(value, keyword), READ_LINE);
}

template <typename Enum> Enum enumerator(std::string_view value, std::string_view keyword) {
    if (!KeywordList::KeywordExists<Enum>(value))
        throw KOR::Exception(invalidValue(value, keyword), READ_LINE);
    return KeywordList::Enumeration<Enum>(value);
}

/// The keyword and value of a line. Throws the errors of a line that is none.
KeywordLine checkedLine(std::string_view line) {
    const KeywordLine parts(line);
    if (parts.keyword.empty())
        throw KOR::Exception(KOR::text("Expected keyword, got '%1'!", shown(line)), READ_LINE);
    if (parts.value.empty())
        throw KOR::Exception(KOR::text("Missing value for keyword '%1'!", shown(parts.keyword)), READ_LINE);
    return parts;
}

void warnInvalid(std::string_view keyword) {
    log(KOR::text("Invalid keyword found in identification section '%1'.", shown(keyword)), KOR::MSG_WARNING,
        READ_LINE);
}

} // namespace

std::span<const std::string_view> MaterialIdentification::databaseEditions() {
    return EDITIONS;
}

std::string MaterialIdentification::today() {
    const std::time_t now = std::time(nullptr);
    std::tm local{};
    char date[16] = "";
    if (localtime_r(&now, &local) != nullptr)
        std::strftime(date, sizeof(date), "%d.%m.%y", &local);
    return date;
}

void MaterialIdentification::read(std::span<const std::string_view> lines, bool preV6) {
    try {
        for (const std::string_view line : lines)
            if (!isComment(line))
                preV6 ? readLinePreV6(line) : readLine(line);
    } catch (const KOR::Exception & ex) {
        throw KOR::Exception(ex, "Error reading material identification section!", "[MaterialIdentification::read]");
    }
}

void MaterialIdentification::readLine(std::string_view line) {
    const auto [keyword, value] = checkedLine(line);
    if (!KeywordList::KeywordExists<Ident>(keyword)) {
        warnInvalid(keyword);
        return;
    }
    setValue(KeywordList::Enumeration<Ident>(keyword), value);
}

void MaterialIdentification::readLinePreV6(std::string_view line) {
    const KeywordLine parts(line);
    for (const auto & [word, message] : OBSOLETE_KEYWORDS)
        if (parts.keyword == word) {
            log(std::string(message), KOR::MSG_WARNING, READ_LINE);
            return;
        }
    const auto [keyword, value] = checkedLine(line);
    const auto * known = std::find_if(std::begin(OLD_KEYWORDS), std::end(OLD_KEYWORDS),
                                      [&](const OldKeyword & row) { return row.word == parts.keyword; });
    if (known == std::end(OLD_KEYWORDS)) {
        warnInvalid(keyword);
        return;
    }
    if (known->key == Ident::NAME) {
        m_name.set("en", value);
    } else if (known->key == Ident::SAMPLING_METHOD) {
        const auto number = KOR::parseInteger<unsigned int>(value);
        if (!number)
            throw KOR::Exception(
                "An unsigned int must be selected for sampling method! Please check Hygrion 6 material "
                "file specification!",
                READ_LINE);
        if (*number >= 1 && *number <= static_cast<unsigned int>(SamplingMethods::S_CAST_KOR))
            m_samplingMethod = static_cast<SamplingMethods>(*number);
    } else {
        setValue(known->key, value);
    }
}

void MaterialIdentification::setValue(Ident key, std::string_view value) {
    const std::string keyword = KeywordList::Keyword(key);
    if (const auto * text = findRow(TEXTS, key)) {
        this->*text->member = value;
    } else if (const auto * languages = findRow(LANGUAGE_TEXTS, key)) {
        this->*languages->member = KOR::LangString(value);
    } else if (const auto * integers = findRow(INTEGERS, key)) {
        this->*integers->member = integer<int>(value, keyword);
    } else if (key == Ident::SAMPLING_METHOD) {
        m_samplingMethod = enumerator<SamplingMethods>(value, keyword);
    } else if (key == Ident::COLOUR) {
        m_colour = KOR::Color::fromHtml(value);
        if (!m_colour)
            throw KOR::Exception(invalidValue(value, keyword), READ_LINE);
    } else if (key == Ident::FLAGS) {
        try {
            setFlags(value);
        } catch (const KOR::Exception & ex) {
            throw KOR::Exception(ex, invalidValue(value, keyword), READ_LINE);
        }
    } else if (key == Ident::CATEGORY) {
        m_category.set(value);
    } else if (key == Ident::DBTYPE) {
        m_dbType.clear();
        for (const std::string_view item : KOR::split(value, ',')) {
            const std::string edition(KOR::trimmed(item));
            if (edition.empty() || std::find(m_dbType.begin(), m_dbType.end(), edition) != m_dbType.end())
                continue;
            if (std::find(std::begin(EDITIONS), std::end(EDITIONS), edition) == std::end(EDITIONS))
                log(KOR::text("Unknown database edition '%1'.", shown(edition)), KOR::MSG_WARNING, READ_LINE);
            if (m_dbType.size() == MAX_EDITIONS)
                throw KOR::Exception(invalidValue(value, keyword), READ_LINE);
            m_dbType.push_back(edition);
        }
    } else if (key == Ident::QUALITY_FLAGS) {
        m_qualityFlags = integer<unsigned int>(value, keyword);
    } else if (key == Ident::HATCHING) {
        const int number = integer<int>(value, keyword);
        if (number < 0 || number > static_cast<int>(HatchingType::None))
            throw KOR::Exception(invalidValue(value, keyword), READ_LINE);
        m_hatching = static_cast<HatchingType>(number);
    }
}

void MaterialIdentification::setFlags(std::string_view text) {
    unsigned int flags = 0;
    for (const std::string_view word : KOR::words(text)) {
        if (!KeywordList::KeywordExists<Flags>(word))
            throw KOR::Exception(invalidValue(word, "FLAGS"), SET_FLAGS);
        flags |= static_cast<unsigned int>(KeywordList::Enumeration<Flags>(word));
    }
    m_flags = flags;
}

void MaterialIdentification::setFlagsPreV6(std::string_view text) {
    constexpr Flags TODAY[] = {Flags::AIR,         Flags::AIR_TIGHT, Flags::VAPOR_TIGHT,
                               Flags::WATER_TIGHT, Flags::WOOD,      Flags::WOOD_BASED};
    static_assert(std::size(TODAY) == indexOf(FlagsPreV6::ONLY_HYGROSCOPIC));
    m_flags = 0;
    for (const std::string_view word : KOR::words(text)) {
        if (!KeywordList::KeywordExists<FlagsPreV6>(word)) {
            log("Unknown flag found! Skipping it for now...", KOR::MSG_WARNING, SET_FLAGS);
            continue;
        }
        const auto flag = KeywordList::Enumeration<FlagsPreV6>(word);
        if (flag == FlagsPreV6::ONLY_HYGROSCOPIC)
            log("Flag ONLY_HYGROSCOPIC is no longer supported! Skipping it now.", KOR::MSG_WARNING, SET_FLAGS);
        else
            m_flags |= static_cast<unsigned int>(TODAY[indexOf(flag)]);
    }
}

std::string MaterialIdentification::valueText(Ident key) const {
    const auto number = [](const auto & value) { return value ? KOR::toString(static_cast<int>(*value)) : ""; };
    if (const auto * text = findRow(TEXTS, key))
        return KOR::replaced(KOR::replaced(this->*text->member, "\n", " "), "\r", " ");
    if (const auto * languages = findRow(LANGUAGE_TEXTS, key))
        return (this->*languages->member).toString();
    if (const auto * integers = findRow(INTEGERS, key))
        return number(this->*integers->member);
    std::string list;
    switch (key) {
    case Ident::SAMPLING_METHOD:
        return m_samplingMethod ? KeywordList::Keyword(*m_samplingMethod) : "";
    case Ident::COLOUR:
        return m_colour ? m_colour->html() : "";
    case Ident::CATEGORY:
        return m_category.text();
    case Ident::QUALITY_FLAGS:
        return m_qualityFlags ? KOR::toString(*m_qualityFlags) : "";
    case Ident::HATCHING:
        return number(m_hatching);
    case Ident::FLAGS:
        for (unsigned int bit = 1; bit <= static_cast<unsigned int>(Flags::FOILS); bit <<= 1)
            if ((m_flags & bit) != 0)
                list += (list.empty() ? "" : " ") + KeywordList::Keyword(static_cast<Flags>(bit));
        return list;
    case Ident::DBTYPE:
        for (const std::string & edition : m_dbType)
            list += (list.empty() ? "" : ", ") + edition;
        return list;
    default:
        return {};
    }
}

void MaterialIdentification::write(std::ostream & out, std::size_t indent) const {
    for (const Ident key : WRITE_ORDER) {
        const std::string value = valueText(key);
        if (!value.empty())
            out << keywordColumn(indent, KeywordList::Keyword(key), KEYWORD_WIDTH) << " = " << value << '\n';
    }
}

} // namespace MM
