#pragma once

#include "materials/HygMaterialModels.h"
#include "materials/HygMaterialRowModel.h"

class HygMaterialDocument;

/// The parameters of one model block. Of a model of several modes each row is a mode and each column a parameter; of others
/// each row is a parameter, and an empty one at the end takes new ones where the program does not know them all.
class HygMaterialModelTable : public HygMaterialRowModel {
    Q_OBJECT
public:
    explicit HygMaterialModelTable(HygMaterialDocument & document, QObject * parent = nullptr);

    /// \param place of a block that is there, nothing for none
    void setPlace(std::optional<HygMaterialModels::Place> place);
    /// The rows are modes.
    bool hasModes() const { return m_hasModes; }

    bool hasFreeRows() const override;
    void insertAfter(int row) override;
    void removeEntries(const std::vector<int> & rows) override;
    QString text() const override;
    void setText(const QString & text) override;

    int rowCount(const QModelIndex & parent = {}) const override;
    int columnCount(const QModelIndex & parent = {}) const override;
    QVariant data(const QModelIndex & index, int role = Qt::DisplayRole) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role = Qt::DisplayRole) const override;
    Qt::ItemFlags flags(const QModelIndex & index) const override;
    bool setData(const QModelIndex & index, const QVariant & value, int role = Qt::EditRole) override;

private:
    enum column_t { KeywordColumn, ValueColumn, MeaningColumn, NUM_COLUMNS };
    using Modes = std::vector<std::vector<double>>; ///< a list a parameter; lists may differ in length

    const MM::ModelDataContainer & model() const;
    const HygMaterialModels::Row * kind() const;
    void takeOver();
    void readRows();
    void changeModel(const QString & text, MM::ModelDataContainer changed);
    void changeModes(const QString & text, const Modes & modes);
    bool setKeyword(int row, const QString & keyword);
    bool setValue(int row, const QString & value);

    HygMaterialDocument & m_document;
    std::optional<HygMaterialModels::Place> m_place;
    bool m_hasModes = false;
    Modes m_modes;
    std::vector<QString> m_keywords; ///< of the rows, given or known
    int m_rows = 0;                  ///< that the views know of
};
