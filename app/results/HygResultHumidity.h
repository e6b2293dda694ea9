#pragma once

class HygResultFile;

namespace DATAIO {
class DataIO;
}

/// Humidities that belong to temperatures, and the dew points of both.
namespace HygResultHumidity {

bool isTemperature(const HygResultFile & file);
bool isHumidity(const HygResultFile & file);
/// Whether a file holds the relative humidity of the places and times of one of temperatures. Of files that are being
/// written one may be some records ahead. Throws KOR::Exception where times cannot be read.
bool belongs(DATAIO::DataIO & humidity, DATAIO::DataIO & temperature);
/// \param temperature [C] \param humidity [%]
/// \return [C]; NaN where there is no humidity to speak of
double dewPoint(double temperature, double humidity);

} // namespace HygResultHumidity
