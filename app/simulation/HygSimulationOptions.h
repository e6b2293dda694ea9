#pragma once

#include "simulation/HygInitForm.h"

#include <QScrollArea>

/// The tabs of the simulation view that edit the settings of the project.
class HygSimulationOptionsPage : public QScrollArea {
    Q_OBJECT
protected:
    HygSimulationOptionsPage(std::span<const HygInitForm::Row> rows, HygProjectHandler & projects, QWidget * parent);
};

/// Balances, simulated time, initial state, place and physics.
class HygSimulationModelOptions : public HygSimulationOptionsPage {
    Q_OBJECT
public:
    explicit HygSimulationModelOptions(HygProjectHandler & projects, QWidget * parent = nullptr);
};

/// Integrator, time steps and accuracy.
class HygSimulationSolverOptions : public HygSimulationOptionsPage {
    Q_OBJECT
public:
    explicit HygSimulationSolverOptions(HygProjectHandler & projects, QWidget * parent = nullptr);
};

/// How the linear equations are solved.
class HygSimulationPerformanceOptions : public HygSimulationOptionsPage {
    Q_OBJECT
public:
    explicit HygSimulationPerformanceOptions(HygProjectHandler & projects, QWidget * parent = nullptr);
};
