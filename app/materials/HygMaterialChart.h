#pragma once

#include "materials/HygMaterialCurves.h"
#include "materials/HygMaterialLoader.h"

#include <QWidget>

class QComboBox;
class QLabel;
namespace SCI {
class Chart;
}

/// Draws one function of one or several materials; the function is chosen above it.
class HygMaterialChart : public QWidget {
    Q_OBJECT
public:
    struct Material {
        HygMaterialLoader::MaterialPtr material;
        QString title;
        bool operator==(const Material &) const = default;
    };

    explicit HygMaterialChart(QWidget * parent = nullptr);

    /// Shows the function that was chosen, or the first one there is.
    void setMaterials(std::vector<Material> materials);
    HygMaterialCurves::curve_t curve() const { return m_curve; }
    void setCurve(HygMaterialCurves::curve_t curve);
    SCI::Chart & chart() { return *m_chart; }

protected:
    void changeEvent(QEvent * event) override;

private:
    void draw();
    bool isThere(HygMaterialCurves::curve_t curve) const;
    void updateChoice();
    void retranslate();

    QComboBox * m_choice;
    SCI::Chart * m_chart;
    QLabel * m_missing; ///< names the materials that do not have the function
    std::vector<Material> m_materials;
    HygMaterialCurves::curve_t m_curve = HygMaterialCurves::StorageRH;
    HygMaterialCurves::curve_t m_wanted = HygMaterialCurves::StorageRH; ///< shown where any of the materials has it
};
