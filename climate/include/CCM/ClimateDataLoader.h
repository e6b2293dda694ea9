#pragma once

#include <CCM/ClimateQuantity.h>

#include <KOR/LinearSpline.h>

#include <array>
#include <cstdint>
#include <iosfwd>
#include <string>
#include <string_view>
#include <vector>

namespace CCM {

struct CCDFile;

/// The climate data of one location: read from any of the container formats, written as "c6b", evaluated at any time.
class ClimateDataLoader {
public:
    /// Bits of the status of a quantity.
    enum status_t : std::uint32_t {
        ST_NOT_PRESENT = 1, ///< no values, or all missing, or all that are not missing near zero
        ST_MISSING = 2,     ///< some values are missing
        ST_IMPLAUSIBLE = 4  ///< some values are outside the plausible range
    };
    /// Of the dialogs that ask for a climate file.
    static constexpr const char * FILE_FILTER = "Climate data container files (*.c6b *.epw *.wac);;All files (*.*)";
    static constexpr std::int32_t NO_YEAR = -9999;
    static constexpr std::uint32_t NO_INDEX = 0xFFFFFFFF;

    struct FirstBadValues {
        std::uint32_t missing = NO_INDEX;
        std::uint32_t implausible = NO_INDEX;
        bool operator==(const FirstBadValues &) const = default;
    };

    // *** Reading and writing ***

    /// Reads the file with the reader of its extension: epw, c6b, wac or dat, letter case does not count.
    /// With \p headerOnly set, only location and station information are read.
    /// Throws "Unknown/unsupported climate data file format." and, around what a reader throws,
    /// "Error reading climate data file." (both "[ClimateDataLoader::readClimateData]"). After a failure the loader is
    /// partly filled.
    void readClimateData(const std::string & path, bool headerOnly = false);

    void readClimateDataKOR(std::istream & in, bool headerOnly = false);
    void readClimateDataEPW(const std::string & path, bool headerOnly = false);
    void readClimateDataWAC(const std::string & path, bool headerOnly = false);
    void readClimateDataBBSRDat(const std::string & path, bool headerOnly = false);

    /// The readers behind the three functions above, for text that is in memory already.
    void parseEPW(std::string_view text, bool headerOnly = false);
    void parseWAC(std::string_view text, bool headerOnly = false);
    void parseBBSRDat(std::string_view text, bool headerOnly = false);

    /// Writes a "c6b" file, whole or not at all. Override splines, for which the format has no place, are written as
    /// values at their own time points. Header values that the format cannot hold are shortened, with a warning.
    void writeClimateDataKOR(const std::string & path) const;

    /// One quantity of a "ccd" file. Throws "#%1: %2" (line, text) ("[ClimateDataLoader::readCCDFile]").
    static CCDFile readCCDFile(const std::string & path);
    /// The reader behind readCCDFile; \p path is for messages only.
    static CCDFile parseCCD(std::string_view text);
    /// Writes a "ccd" file, whole or not at all.
    static void writeCCDFile(const std::string & path, const CCDFile & file);
    /// The named quantity as it stands in this loader, missing values left out.
    CCDFile quantityAsCCD(quantity_t quantity) const;
    /// Takes over a quantity: 8760 values at the annual time points become data, any others an override spline.
    /// Throws "Unknown climate quantity '%1'." ("[ClimateDataLoader::setQuantity]") and unit errors.
    void setQuantity(const CCDFile & file);

    /// A header line of the form "keyword : value unit".
    struct HeaderLine {
        std::string keyword;
        std::string value;
        std::string unit;
    };
    /// Throws "Invalid header.\n" after "Invalid header line '%1', expected format <keyword> : <value> <unit>."
    /// ("[CCM::ClimateDataLoader::valueFromParaString]").
    static HeaderLine valueFromParaString(std::string_view line);

    // *** Checks and evaluation ***

    /// Fills the status sets and the first bad indices; run at the end of every full read.
    void checkValues();

    /// Throws ("[ClimateDataLoader::checkForValidCyclicData]") unless data at these time points [s] can be repeated
    /// every year.
    static void checkForValidCyclicData(const std::vector<double> & timePoints);

    /// Computes the current values.
    /// \param year of the simulation
    /// \param secondsOfYear [s] since the start of the simulation year
    void setTime(int year, double secondsOfYear);

    /// Result of the last setTime in the quantity's unit.
    double value(quantity_t quantity) const { return m_currentValues[quantity]; }

    /// Number of values of each quantity.
    std::size_t size() const { return m_data[0].size(); }
    bool isAnnual() const { return m_timePoints.empty(); }
    /// The time [s] since the start of the start year at which a value of a quantity stands.
    double timeOf(quantity_t quantity, std::size_t index) const {
        return isAnnual() ? annualTime(quantity, index) : m_timePoints[index];
    }
    /// Hours between local standard time and UTC, fractions of an hour included.
    double utcOffset() const { return m_timeZone + m_timeZoneRest; }
    /// Sets the time zone from hours, which may have a fraction.
    void setUtcOffset(double hours);

    bool operator==(const ClimateDataLoader &) const = default;

    double m_longitude = 0;      ///< [Deg], east positive
    double m_latitude = 0;       ///< [Deg], north positive
    double m_elevation = 0;      ///< [m] above sea level
    std::int32_t m_timeZone = 0; ///< [h] relative to UTC
    std::string m_city = "---";
    std::string m_country;
    std::string m_wmoCode;
    std::string m_source; ///< where the data came from
    std::string m_comment;
    /// Values in the units of CLIMATE_QUANTITIES; all vectors are of equal length.
    std::array<std::vector<double>, NUM_QUANTITIES> m_data;
    std::vector<double> m_timePoints; ///< [s]; empty: 8760 hourly values of one year
    std::int32_t m_startYear = NO_YEAR;
    /// Override the data where not empty; x in [s].
    std::array<KOR::LinearSpline, NUM_QUANTITIES> m_splines;
    std::array<std::uint32_t, NUM_QUANTITIES> m_valueStatus{};
    std::array<FirstBadValues, NUM_QUANTITIES> m_firstBad{};
    std::array<double, NUM_QUANTITIES> m_currentValues{};
    double m_timeZoneRest = 0; ///< [h] what the integer leaves of zones such as +5:30

private:
    void checkLengths(const char * where) const;
    void setAnnualTime(double t);
    void setTimePoint(int year, double t);
};

/// One quantity with its own time points, as "ccd" files hold it.
struct CCDFile {
    std::string quantity;           ///< keyword
    std::string unit;               ///< of the values
    std::string comment;            ///< lines without their number signs
    std::vector<double> timePoints; ///< [s], strictly increasing
    std::vector<double> values;
};

} // namespace CCM
