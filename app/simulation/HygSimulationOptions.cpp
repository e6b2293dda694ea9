#include "HygSimulationOptions.h"

#include "HygInitTexts.h"

namespace {
constexpr int MAX_WIDTH = 760; ///< beyond it fields are too far from their labels
} // namespace

HygSimulationOptionsPage::HygSimulationOptionsPage(std::span<const HygInitForm::Row> rows, HygProjectHandler & projects,
                                                   QWidget * parent)
    : QScrollArea(parent) {
    auto * form = new HygInitForm(rows, projects);
    form->setMaximumWidth(MAX_WIDTH);
    setWidget(form);
    setWidgetResizable(true);
    setFrameShape(QFrame::NoFrame);
}

HygSimulationModelOptions::HygSimulationModelOptions(HygProjectHandler & projects, QWidget * parent)
    : HygSimulationOptionsPage(HygInitTexts::MODEL_OPTIONS, projects, parent) {}

HygSimulationSolverOptions::HygSimulationSolverOptions(HygProjectHandler & projects, QWidget * parent)
    : HygSimulationOptionsPage(HygInitTexts::SOLVER_OPTIONS, projects, parent) {}

HygSimulationPerformanceOptions::HygSimulationPerformanceOptions(HygProjectHandler & projects, QWidget * parent)
    : HygSimulationOptionsPage(HygInitTexts::PERFORMANCE_OPTIONS, projects, parent) {}
