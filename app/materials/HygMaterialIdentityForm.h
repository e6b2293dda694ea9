#pragma once

#include "materials/HygMaterialForm.h"

#include <array>

class HygMaterialDocument;
class QCheckBox;
class QComboBox;
class QLineEdit;
class QPlainTextEdit;
namespace QtExt {
class ColorButton;
}

/// Names, category, appearance, flags and source of a material.
class HygMaterialIdentityForm : public HygMaterialForm {
    Q_OBJECT
public:
    HygMaterialIdentityForm(HygMaterialDocument & document, QWidget * parent = nullptr);

protected:
    void changeEvent(QEvent * event) override;
    bool eventFilter(QObject * watched, QEvent * event) override;

private:
    static constexpr std::size_t NUM_CATEGORIES = 3;
    static constexpr std::size_t NUM_FLAGS = 7;
    struct TextField {
        int row;
        QWidget * edit; ///< QLineEdit or QPlainTextEdit
        QLabel * label;
    };

    void addTexts(int first, int last);
    void addAppearance();
    void addFlags();
    void takeText(const TextField & field);
    void takeCategories();
    void takeFlags();
    void update();
    void retranslate();

    HygMaterialDocument & m_document;
    std::vector<TextField> m_texts;
    std::array<QComboBox *, NUM_CATEGORIES> m_categories{};
    std::array<QLabel *, NUM_CATEGORIES> m_categoryLabels{};
    std::array<QCheckBox *, NUM_FLAGS> m_flags{};
    QtExt::ColorButton * m_color = nullptr;
    QComboBox * m_hatching = nullptr;
    QLabel * m_colorLabel = nullptr;
    QLabel * m_hatchingLabel = nullptr;
    QLabel * m_flagsLabel = nullptr;
};
