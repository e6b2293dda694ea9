#pragma once

#include <QString>

#include <string_view>

/// What the material library says in English, in the user's language.
namespace HygMaterialTexts {

/// The language of names and comments: that of the settings, else that of the system ("de").
QString language();
/// A description of the keyword list or a finding of the check.
QString translated(std::string_view english);
/// \param id MM::MaterialCategory::CategoryID
QString category(int id);
/// \param index MM::MaterialIdentification::HatchingType
QString hatching(int index);
int numHatchings();
/// Six digits; empty for NaN.
QString number(double value);
/// A KOR unit for brackets: "m³/m³", "-" for none.
QString unit(const QString & name);

} // namespace HygMaterialTexts
