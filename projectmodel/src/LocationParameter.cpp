#include <HYGRION/LocationParameter.h>

namespace HYGRION {

namespace {

constexpr Init::para_t PARAMETERS[] = {Init::para_t::Longitude, Init::para_t::Latitude, Init::para_t::Height,
                                       Init::para_t::Albedo};

void copy(const ParaSet<Init::para_t> & from, ParaSet<Init::para_t> & to) {
    for (const Init::para_t key : PARAMETERS)
        if (from.contains(key))
            to.insert(key, *from.find(key));
        else
            to.erase(key);
}

} // namespace

LocationParameter LocationParameter::of(const Init & init) {
    LocationParameter location;
    location.m_climateDataFilePath = init.m_climateDataFilePath;
    copy(init.m_para, location.m_para);
    location.m_timeZone = init.m_intPara.value(Init::intpara_t::TimeZone);
    if (init.m_flag.contains(Init::flag_t::UseCustomLocation))
        location.m_useCustomLocation = init.m_flag.isEnabled(Init::flag_t::UseCustomLocation);
    return location;
}

void LocationParameter::applyTo(Init & init) const {
    init.m_climateDataFilePath = m_climateDataFilePath;
    copy(m_para, init.m_para);
    if (m_timeZone)
        init.m_intPara.set(Init::intpara_t::TimeZone, *m_timeZone);
    else
        init.m_intPara.erase(Init::intpara_t::TimeZone);
    if (m_useCustomLocation)
        init.m_flag.set(Init::flag_t::UseCustomLocation, *m_useCustomLocation);
    else
        init.m_flag.erase(Init::flag_t::UseCustomLocation);
}

} // namespace HYGRION
