#include <HYGRION/KeywordList.h>

#include "KeywordTie.h"
#include "KeywordsConditions.h"
#include "KeywordsFields.h"
#include "KeywordsFurther.h"
#include "KeywordsGeneral.h"

#include <HYGRION/Assessment.h>
#include <HYGRION/Conditions.h>
#include <HYGRION/Disc.h>
#include <HYGRION/Init.h>
#include <HYGRION/Outputs.h>

namespace HYGRION {

namespace {

/// In the order of the categories. Does not compile unless words and enumerators agree.
constexpr KOR::KeywordCategory CATEGORIES[] = {
    tied<Assessment::AssessmentType>("Assessment::AssessmentType", ASSESSMENT_ASSESSMENT_TYPE),
    tied<Assessment::AssignmentType>("Assessment::AssignmentType", ASSESSMENT_ASSIGNMENT_TYPE),
    tied<Assignment::type_t>("Assignment::type_t", ASSIGNMENT_TYPE),
    tied<Assignment::location_t>("Assignment::location_t", ASSIGNMENT_LOCATION),
    tied<Assignment::AnisotropyInitType>("Assignment::AnisotropyInitType", ASSIGNMENT_ANISOTROPY_INIT_TYPE),
    tied<BoundaryCond::condition_t>("BoundaryCond::condition_t", BOUNDARY_COND_CONDITION),
    tied<BoundaryCond::kind_t>("BoundaryCond::kind_t", BOUNDARY_COND_KIND),
    tied<BoundaryCond::para_t>("BoundaryCond::para_t", BOUNDARY_COND_PARA),
    tied<BoundaryCond::flag_t>("BoundaryCond::flag_t", BOUNDARY_COND_FLAG),
    tied<BoundaryCond::output_t>("BoundaryCond::output_t", BOUNDARY_COND_OUTPUT),
    tied<BoundaryCond::intpara_t>("BoundaryCond::intpara_t", BOUNDARY_COND_INTPARA),
    tied<ClimateCond::condition_t>("ClimateCond::condition_t", CLIMATE_COND_CONDITION),
    tied<ClimateCond::kind_t>("ClimateCond::kind_t", CLIMATE_COND_KIND),
    tied<ClimateCond::para_t>("ClimateCond::para_t", CLIMATE_COND_PARA),
    tied<ClimateCond::flag_t>("ClimateCond::flag_t", CLIMATE_COND_FLAG),
    tied<Conditions::conditionList_t>("Conditions::conditionList_t", CONDITIONS_CONDITION_LIST),
    tied<Conditions::conditionType_t>("Conditions::conditionType_t", CONDITIONS_CONDITION_TYPE),
    tied<ContactCond::condition_t>("ContactCond::condition_t", CONTACT_COND_CONDITION),
    tied<ContactCond::kind_t>("ContactCond::kind_t", CONTACT_COND_KIND),
    tied<ContactCond::para_t>("ContactCond::para_t", CONTACT_COND_PARA),
    tied<ContactCond::flag_t>("ContactCond::flag_t", CONTACT_COND_FLAG),
    tied<ContactCond::function_t>("ContactCond::function_t", CONTACT_COND_FUNCTION),
    tied<Disc::geometry_t>("Disc::geometry_t", DISC_GEOMETRY),
    tied<FieldCond::condition_t>("FieldCond::condition_t", FIELD_COND_CONDITION),
    tied<FieldCond::para_t>("FieldCond::para_t", FIELD_COND_PARA),
    tied<FieldCond::intpara_t>("FieldCond::intpara_t", FIELD_COND_INTPARA),
    tied<FieldCond::flag_t>("FieldCond::flag_t", FIELD_COND_FLAG),
    tied<FieldCond::additionalClimate_t>("FieldCond::additionalClimate_t", FIELD_COND_ADDITIONAL_CLIMATE),
    tied<Init::flag_t>("Init::flag_t", INIT_FLAG),
    tied<Init::para_t>("Init::para_t", INIT_PARA),
    tied<Init::intpara_t>("Init::intpara_t", INIT_INTPARA),
    tied<Init::defaultInitialCondition_t>("Init::defaultInitialCondition_t", INIT_DEFAULT_INITIAL_CONDITION),
    tied<Init::lambdaSelection_t>("Init::lambdaSelection_t", INIT_LAMBDA_SELECTION),
    tied<InitialCond::condition_t>("InitialCond::condition_t", INITIAL_COND_CONDITION),
    tied<Interface::type_t>("Interface::type_t", INTERFACE_TYPE),
    tied<Interface::climateTypeIndoor_t>("Interface::climateTypeIndoor_t", INTERFACE_CLIMATE_TYPE_INDOOR),
    tied<Interface::indoorWTAType_t>("Interface::indoorWTAType_t", INTERFACE_INDOOR_WTATYPE),
    tied<Interface::climateTypeOutdoor_t>("Interface::climateTypeOutdoor_t", INTERFACE_CLIMATE_TYPE_OUTDOOR),
    tied<Interface::fmuInterface_t>("Interface::fmuInterface_t", INTERFACE_FMU_INTERFACE),
    tied<Interface::otherSideType_t>("Interface::otherSideType_t", INTERFACE_OTHER_SIDE_TYPE),
    tied<Interface::fmuInputVariables_t>("Interface::fmuInputVariables_t", INTERFACE_FMU_INPUT_VARIABLES),
    tied<Interface::para_t>("Interface::para_t", INTERFACE_PARA),
    tied<Interface::flag_t>("Interface::flag_t", INTERFACE_FLAG),
    tied<Interval::para_t>("Interval::para_t", INTERVAL_PARA),
    tied<OutputFile::space_type_t>("OutputFile::space_type_t", OUTPUT_FILE_SPACE_TYPE),
    tied<OutputFile::time_type_t>("OutputFile::time_type_t", OUTPUT_FILE_TIME_TYPE),
    tied<Outputs::para_t>("Outputs::para_t", OUTPUTS_PARA),
    tied<Outputs::intpara_t>("Outputs::intpara_t", OUTPUTS_INTPARA),
    tied<SolverSettings::para_t>("SolverSettings::para_t", SOLVER_SETTINGS_PARA),
    tied<SolverSettings::flag_t>("SolverSettings::flag_t", SOLVER_SETTINGS_FLAG),
    tied<SolverSettings::integrator_t>("SolverSettings::integrator_t", SOLVER_SETTINGS_INTEGRATOR),
    tied<SolverSettings::lesSolver_t>("SolverSettings::lesSolver_t", SOLVER_SETTINGS_LES_SOLVER),
    tied<SolverSettings::precond_t>("SolverSettings::precond_t", SOLVER_SETTINGS_PRECOND),
};
static_assert(std::size(CATEGORIES) == 53);

constexpr KOR::KeywordCategory FURTHER_CATEGORIES[] = {
    tied<Init::balanceEquationModule_t>("Init::balanceEquationModule_t", INIT_BALANCE_EQUATION_MODULE),
    tied<Outputs::flag_t>("Outputs::flag_t", OUTPUTS_FLAG),
};

constexpr KOR::KeywordTable TABLE{CATEGORIES};
constexpr KOR::KeywordTable FURTHER_TABLE{FURTHER_CATEGORIES};

} // namespace

const KOR::KeywordTable & KeywordList::table() {
    return TABLE;
}
const KOR::KeywordTable & KeywordList::furtherTable() {
    return FURTHER_TABLE;
}

} // namespace HYGRION
