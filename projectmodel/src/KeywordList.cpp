#include <HYGRION/KeywordList.h>

#include <HYGRION/Interval.h>

#include "KeywordTie.h"
#include "KeywordsConditions.h"
#include "KeywordsFields.h"
#include "KeywordsGeneral.h"

namespace HYGRION {

namespace {

/// In the order of the categories. A tied row does not compile unless words and enumerators agree.
constexpr KOR::KeywordCategory CATEGORIES[] = {
    {"Assessment::AssessmentType",      ASSESSMENT_ASSESSMENT_TYPE     },
    {"Assessment::AssignmentType",      ASSESSMENT_ASSIGNMENT_TYPE     },
    {"Assignment::type_t",              ASSIGNMENT_TYPE                },
    {"Assignment::location_t",          ASSIGNMENT_LOCATION            },
    {"Assignment::AnisotropyInitType",  ASSIGNMENT_ANISOTROPY_INIT_TYPE},
    {"BoundaryCond::condition_t",       BOUNDARY_COND_CONDITION        },
    {"BoundaryCond::kind_t",            BOUNDARY_COND_KIND             },
    {"BoundaryCond::para_t",            BOUNDARY_COND_PARA             },
    {"BoundaryCond::flag_t",            BOUNDARY_COND_FLAG             },
    {"BoundaryCond::output_t",          BOUNDARY_COND_OUTPUT           },
    {"BoundaryCond::intpara_t",         BOUNDARY_COND_INTPARA          },
    {"ClimateCond::condition_t",        CLIMATE_COND_CONDITION         },
    {"ClimateCond::kind_t",             CLIMATE_COND_KIND              },
    {"ClimateCond::para_t",             CLIMATE_COND_PARA              },
    {"ClimateCond::flag_t",             CLIMATE_COND_FLAG              },
    {"Conditions::conditionList_t",     CONDITIONS_CONDITION_LIST      },
    {"Conditions::conditionType_t",     CONDITIONS_CONDITION_TYPE      },
    {"ContactCond::condition_t",        CONTACT_COND_CONDITION         },
    {"ContactCond::kind_t",             CONTACT_COND_KIND              },
    {"ContactCond::para_t",             CONTACT_COND_PARA              },
    {"ContactCond::flag_t",             CONTACT_COND_FLAG              },
    {"ContactCond::function_t",         CONTACT_COND_FUNCTION          },
    {"Disc::geometry_t",                DISC_GEOMETRY                  },
    {"FieldCond::condition_t",          FIELD_COND_CONDITION           },
    {"FieldCond::para_t",               FIELD_COND_PARA                },
    {"FieldCond::intpara_t",            FIELD_COND_INTPARA             },
    {"FieldCond::flag_t",               FIELD_COND_FLAG                },
    {"FieldCond::additionalClimate_t",  FIELD_COND_ADDITIONAL_CLIMATE  },
    {"Init::flag_t",                    INIT_FLAG                      },
    {"Init::para_t",                    INIT_PARA                      },
    {"Init::intpara_t",                 INIT_INTPARA                   },
    {"Init::defaultInitialCondition_t", INIT_DEFAULT_INITIAL_CONDITION },
    {"Init::lambdaSelection_t",         INIT_LAMBDA_SELECTION          },
    {"InitialCond::condition_t",        INITIAL_COND_CONDITION         },
    {"Interface::type_t",               INTERFACE_TYPE                 },
    {"Interface::climateTypeIndoor_t",  INTERFACE_CLIMATE_TYPE_INDOOR  },
    {"Interface::indoorWTAType_t",      INTERFACE_INDOOR_WTATYPE       },
    {"Interface::climateTypeOutdoor_t", INTERFACE_CLIMATE_TYPE_OUTDOOR },
    {"Interface::fmuInterface_t",       INTERFACE_FMU_INTERFACE        },
    {"Interface::otherSideType_t",      INTERFACE_OTHER_SIDE_TYPE      },
    {"Interface::fmuInputVariables_t",  INTERFACE_FMU_INPUT_VARIABLES  },
    {"Interface::para_t",               INTERFACE_PARA                 },
    {"Interface::flag_t",               INTERFACE_FLAG                 },
    tied<Interval::para_t>("Interval::para_t", INTERVAL_PARA),
    {"OutputFile::space_type_t",        OUTPUT_FILE_SPACE_TYPE         },
    {"OutputFile::time_type_t",         OUTPUT_FILE_TIME_TYPE          },
    {"Outputs::para_t",                 OUTPUTS_PARA                   },
    {"Outputs::intpara_t",              OUTPUTS_INTPARA                },
    {"SolverSettings::para_t",          SOLVER_SETTINGS_PARA           },
    {"SolverSettings::flag_t",          SOLVER_SETTINGS_FLAG           },
    {"SolverSettings::integrator_t",    SOLVER_SETTINGS_INTEGRATOR     },
    {"SolverSettings::lesSolver_t",     SOLVER_SETTINGS_LES_SOLVER     },
    {"SolverSettings::precond_t",       SOLVER_SETTINGS_PRECOND        },
};
static_assert(std::size(CATEGORIES) == 53);

constexpr KOR::KeywordTable TABLE{CATEGORIES};

} // namespace

const KOR::KeywordTable & KeywordList::table() {
    return TABLE;
}

} // namespace HYGRION
