#include "materials/HygMaterialFindings.h"

#include "materials/HygMaterialFunctions.h"
#include "materials/HygMaterialTexts.h"

#include <MM/KeywordList.h>

#include <QCoreApplication>

#include <algorithm>

namespace {

struct FindingRow {
    const char * message;
    const char * field; ///< keyword
};
// The messages of MM::checkMaterial.
// clang-format off
constexpr FindingRow FINDINGS[] = {
    {QT_TRANSLATE_NOOP("MM", "LambdaDry is smaller than 1e-20"), "LAMBDA"},
    {QT_TRANSLATE_NOOP("MM", "The minimum Theta_l value should be zero!"), "lambda(Theta_l)"},
    {QT_TRANSLATE_NOOP("MM", "The maximum Thetal value should be equal to THETA_EFF!"), "lambda(Theta_l)"},
    {QT_TRANSLATE_NOOP("MM", "The lambda-value at zero must match LAMBDA!"), "LAMBDA"},
    {QT_TRANSLATE_NOOP("MM", "Data for Lambda(ThetaIce) exist but function is not valid.!"), "lambda(Theta_ice)"},
    {QT_TRANSLATE_NOOP("MM", "No data for thermal storage given (no parameter ce and no U(T) function)!"), "CE"},
    {QT_TRANSLATE_NOOP("MM", "U(T) function given but no parameter ce!"), "CE"},
    {QT_TRANSLATE_NOOP("MM", "Material is air and Theta_Eff exist."), "THETA_EFF"},
    {QT_TRANSLATE_NOOP("MM", "Material is air and Theta_Por exist."), "THETA_POR"},
    {QT_TRANSLATE_NOOP("MM", "Material is water and vapor tight and Theta_Eff exist."), "THETA_EFF"},
    {QT_TRANSLATE_NOOP("MM", "Material is water and vapor tight and Theta_Por exist."), "THETA_POR"},
    {QT_TRANSLATE_NOOP("MM", "Theta_Eff not given! It is necessary for moisture storage"), "THETA_EFF"},
    {QT_TRANSLATE_NOOP("MM", "Theta_Por is smaller than Theta_Eff!"), "THETA_POR"},
    {QT_TRANSLATE_NOOP("MM", "Theta_Por not given!"), "THETA_POR"},
    {QT_TRANSLATE_NOOP("MM", "Material is water and vapor tight and moisture retention exist."), "Theta_l(pC)_de"},
    {QT_TRANSLATE_NOOP("MM", "Material is water and vapor tight and sorption isotherm exist."), "Theta_l(RH)"},
    {QT_TRANSLATE_NOOP("MM", "Cannot create reverse function of Thetal(RH) function"), "Theta_l(RH)"},
    {QT_TRANSLATE_NOOP("MM", "First value of Thetal(pc) is not Theta_Eff."), "Theta_l(pC)_de"},
    {QT_TRANSLATE_NOOP("MM", "Thetal(pc) exist but not Theta_Eff."), "Theta_l(pC)_de"},
    {QT_TRANSLATE_NOOP("MM", "Last value of Thetal(pc) is not 0."), "Theta_l(pC)_de"},
    {QT_TRANSLATE_NOOP("MM", "First x value of Thetal(pc) is not 0."), "Theta_l(pC)_de"},
    {QT_TRANSLATE_NOOP("MM", "Last x value of pc(Thetal) is not Theta_Eff."), "pC(Theta_l)_de"},
    {QT_TRANSLATE_NOOP("MM", "pc(Thetal) exist but not Theta_Eff."), "pC(Theta_l)_de"},
    {QT_TRANSLATE_NOOP("MM", "First x value of pc(Thetal) is not 0."), "pC(Theta_l)_de"},
    {QT_TRANSLATE_NOOP("MM", "Last value of pc(Thetal) is not 0."), "pC(Theta_l)_de"},
    {QT_TRANSLATE_NOOP("MM", "Current moisture storage function doesn't allow to create a correct mwu(T) function."), "mwu(T)"},
    {QT_TRANSLATE_NOOP("MM", "No moisture storage function or model given"), "Theta_l(RH)"},
    {QT_TRANSLATE_NOOP("MM", "More than one model for moisture storage given"), "Theta_l(RH)"},
    {QT_TRANSLATE_NOOP("MM", "Unknown model for moisture storage given"), "Theta_l(RH)"},
    {QT_TRANSLATE_NOOP("MM", "Only GAUSS model for moisture storage is currently supported"), "Theta_l(RH)"},
    {QT_TRANSLATE_NOOP("MM", "Moisture storage function is created from GAUSS model"), "Theta_l(RH)"},
    {QT_TRANSLATE_NOOP("MM", "Material is water tight and Kl_Eff exist."), "KLEFF"},
    {QT_TRANSLATE_NOOP("MM", "Material is water tight and Dl_Eff exist."), "DLEFF"},
    {QT_TRANSLATE_NOOP("MM", "Material is water tight and Aw exist."), "AW"},
    {QT_TRANSLATE_NOOP("MM", "Material is water atight and Kl(Thetal) function exist."), "lgKl(Theta_l)"},
    {QT_TRANSLATE_NOOP("MM", "Material is water tight and Dl(Thetal) function exist."), "lgDl(Theta_l)"},
    {QT_TRANSLATE_NOOP("MM", "Material is not water tight and no liquid transport function exist."), "lgKl(Theta_l)"},
    {QT_TRANSLATE_NOOP("MM", "Kl_eff exist but Aw doesn't exist. Scaling of Kl(Thetal) by using Aw not possible."), "KLEFF"},
    {QT_TRANSLATE_NOOP("MM", "Dl_eff exist but Aw doesn't exist. Scaling of Dl(Thetal) by using Aw not possible."), "DLEFF"},
    {QT_TRANSLATE_NOOP("MM", "Kl(Thetal) exist but Kleff not given!"), "KLEFF"},
    {QT_TRANSLATE_NOOP("MM", "Dl(Thetal) exist but Kleff not given!"), "DLEFF"},
    {QT_TRANSLATE_NOOP("MM", "First Thetal value in Kl(Thetal) must be 0."), "lgKl(Theta_l)"},
    {QT_TRANSLATE_NOOP("MM", "Last Thetal value in Kl(Thetal) must be ThetaEff."), "lgKl(Theta_l)"},
    {QT_TRANSLATE_NOOP("MM", "Last Kl value in Kl(Thetal) must be KlEff."), "lgKl(Theta_l)"},
    {QT_TRANSLATE_NOOP("MM", "Kl(Thetal) function must be monotonic increasing."), "lgKl(Theta_l)"},
    {QT_TRANSLATE_NOOP("MM", "Dl(Thetal) and Kl(Thetal) exist! Only Kl(Thetal) will be used."), "lgDl(Theta_l)"},
    {QT_TRANSLATE_NOOP("MM", "First Thetal value in Dl(Thetal) must be 0."), "lgDl(Theta_l)"},
    {QT_TRANSLATE_NOOP("MM", "Last Dl value in Dl(Thetal) must be DlEff."), "lgDl(Theta_l)"},
    {QT_TRANSLATE_NOOP("MM", "Dl(Thetal) function must be monotonic increasing."), "lgDl(Theta_l)"},
    {QT_TRANSLATE_NOOP("MM", "Material is vapor tight and myDry exist."), "MEW"},
    {QT_TRANSLATE_NOOP("MM", "Material is not vapor tight and Theta_Por doesn't exist."), "THETA_POR"},
    {QT_TRANSLATE_NOOP("MM", "Material is not vapor tight and no vapor transport model exist (no myDry and no Kv(Thetal))."), "MEW"},
    {QT_TRANSLATE_NOOP("MM", "First Thetal value in Kv(Thetal) must be 0."), "lgKv(Theta_l)"},
    {QT_TRANSLATE_NOOP("MM", "Last Thetal value in Kv(Thetal) must be ThetaPor."), "lgKv(Theta_l)"},
    {QT_TRANSLATE_NOOP("MM", "Thirst Kv value in Kv(Thetal) must correspond to myDry."), "lgKv(Theta_l)"},
    {QT_TRANSLATE_NOOP("MM", "Material is air tight and Kg exist."), "KG"},
    {QT_TRANSLATE_NOOP("MM", "Material is not air tight and Kg is smaller than 1e-20s."), "KG"},
    {QT_TRANSLATE_NOOP("MM", "Material is not air tight and Kg doesn't exist."), "KG"},
    {QT_TRANSLATE_NOOP("MM", "Material is not air tight and transport function is given (no Kg(Thetal) and no Para Kg)."), "KG"},
    {QT_TRANSLATE_NOOP("MM", "First Thetal value in Kg(Thetal) must be 0."), "Kg(Theta_l)"},
    {QT_TRANSLATE_NOOP("MM", "Last Thetal value in Kg(Thetal) must be ThetaPor."), "Kg(Theta_l)"},
    {QT_TRANSLATE_NOOP("MM", "First y value in Kg(Thetal) must be Kg_dry."), "Kg(Theta_l)"},
    {QT_TRANSLATE_NOOP("MM", "All y values in Kg(Thetal) must be greater than 0."), "Kg(Theta_l)"},
};
// clang-format on

struct SlopeRow {
    const char * field;
    bool isRising;
    const char * text;
};
constexpr SlopeRow SLOPES[] = {
    {"Theta_l(RH)",    true,
     QT_TRANSLATE_NOOP("HygMaterialFindings",
     "The moisture content must not fall with the humidity, as it does in row %1.")          },
    {"Theta_l(pC)_de", false,
     QT_TRANSLATE_NOOP("HygMaterialFindings",
     "The moisture content must not rise with the capillary pressure, as it does in row %1.")},
    {"Theta_l(pC)_ad", false,
     QT_TRANSLATE_NOOP("HygMaterialFindings",
     "The moisture content must not rise with the capillary pressure, as it does in row %1.")},
    {"lgKl(Theta_l)",  true,
     QT_TRANSLATE_NOOP("HygMaterialFindings",
     "The conductivity must not fall with the moisture content, as it does in row %1.")      },
    {"lgDl(Theta_l)",  true,
     QT_TRANSLATE_NOOP("HygMaterialFindings",
     "The diffusivity must not fall with the moisture content, as it does in row %1.")       },
};

} // namespace

QString HygMaterialFindings::field(const MM::Finding & finding) {
    const auto * row = std::find_if(std::begin(FINDINGS), std::end(FINDINGS),
                                    [&](const FindingRow & candidate) { return candidate.message == finding.message; });
    return row == std::end(FINDINGS) ? QString() : QString::fromLatin1(row->field);
}

QString HygMaterialFindings::text(const MM::Finding & finding) {
    return HygMaterialTexts::translated(finding.message);
}

QString HygMaterialFindings::label(const QString & keyword) {
    for (const char * enumeration : {"Material::ParaStorage", "Material::ParaTransport", "Material::ParaMechanical"})
        if (MM::KeywordList::KeywordExists(enumeration, keyword.toStdString()))
            return HygMaterialTexts::translated(MM::KeywordList::Description(
                enumeration, MM::KeywordList::Enumeration(enumeration, keyword.toStdString())));
    for (int row = 0; row < HygMaterialFunctions::numRows(); ++row)
        if (keyword == QLatin1String(HygMaterialFunctions::row(row).keyword))
            return HygMaterialFunctions::title({row, 0});
    return {};
}

QString HygMaterialFindings::slope(const QString & keyword, const KOR::LinearSpline & points) {
    for (const SlopeRow & rule : SLOPES)
        if (keyword == QLatin1String(rule.field))
            for (std::size_t i = 1; i < points.size(); ++i)
                if (rule.isRising ? points.y()[i] < points.y()[i - 1] : points.y()[i] > points.y()[i - 1])
                    return QCoreApplication::translate("HygMaterialFindings", rule.text).arg(i + 1);
    return {};
}
