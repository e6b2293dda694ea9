#pragma once

#include <MM/CheckMaterial.h>

#include <KOR/LinearSpline.h>

#include <QString>

#include <vector>

/// Where in the editor the findings of the material check belong.
namespace HygMaterialFindings {

/// Keyword of the parameter or function that a finding concerns; empty for what concerns none alone.
QString field(const MM::Finding & finding);
/// In the user's language.
QString text(const MM::Finding & finding);
/// What the form calls the parameter or function with a keyword; empty for others.
QString label(const QString & keyword);
/// In which row a function falls that must rise, or rises that must fall, in words; empty if it does not.
QString slope(const QString & keyword, const KOR::LinearSpline & points);

} // namespace HygMaterialFindings
