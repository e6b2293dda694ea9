#pragma once

#include <MM/CheckMaterial.h>

#include <QString>

#include <vector>

/// Where in the editor the findings of the material check belong.
namespace HygMaterialFindings {

/// Keyword of the parameter or function that a finding concerns; empty for what concerns none alone.
QString field(const MM::Finding & finding);
/// In the user's language.
QString text(const MM::Finding & finding);

} // namespace HygMaterialFindings
