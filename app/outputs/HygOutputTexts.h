#pragma once

#include <HYGRION/OutputFile.h>
#include <HYGRION/OutputGrid.h>

#include <QString>

#include <string_view>

/// Outputs in the user's words.
namespace HygOutputTexts {

/// "Relative humidity"; a keyword that the solver does not know stands as it is.
QString quantity(std::string_view keyword);
QString spaceType(HYGRION::OutputFile::space_type_t type);
QString timeType(HYGRION::OutputFile::time_type_t type);
/// "every 1 h from 0 d; every 1 d from 30 d to 365 d"
QString schedule(const HYGRION::OutputGrid & grid);

} // namespace HygOutputTexts
