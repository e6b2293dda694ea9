#pragma once

#include "materials/HygMaterialForm.h"

class HygMaterialDocument;
namespace QtExt {
class ValueEdit;
}

/// The base parameters of a material, one field a keyword.
class HygMaterialParameterForm : public HygMaterialForm {
    Q_OBJECT
public:
    HygMaterialParameterForm(HygMaterialDocument & document, QWidget * parent = nullptr);

protected:
    void changeEvent(QEvent * event) override;

private:
    struct Field;
    void addGroup(const char * title, const std::vector<Field> & fields);
    void take(const Field & field);
    void update();
    void retranslate();

    HygMaterialDocument & m_document;
    std::vector<std::pair<QLabel *, const char *>> m_titles;
    std::vector<Field> m_parameters;
};

struct HygMaterialParameterForm::Field {
    enum kind_t { Storage, Transport, Mechanical, Foil } kind;
    int index; ///< of the kind's enumeration
    QtExt::ValueEdit * edit = nullptr;
    QLabel * label = nullptr;
};
