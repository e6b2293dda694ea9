#pragma once

#include "undo/HygModification.h"

#include <HYGRION/Project.h>

#include <QUndoCommand>

class HygProjectHandler;

/// Base of all commands. A command works on the project of the handler that was there when it was made.
class HygUndoCommandBase : public QUndoCommand {
public:
    /// Successive commands of one class on one definition that change the same field become one step of undo.
    /// \param field any word that names the field; empty (as it is at first) keeps each change a step of its own
    void setField(const QString & field) { m_field = field; }

    int id() const override { return m_field.isEmpty() ? -1 : 1; }
    /// Merges what isSameTarget() and absorb() agree to.
    bool mergeWith(const QUndoCommand * other) override;

protected:
    /// Throws "No project is open." ("[HygUndoCommandBase::HygUndoCommandBase]").
    explicit HygUndoCommandBase(const QString & text);

    HYGRION::Project & theProject() const;
    /// Tells the views; the last thing that redo and undo do.
    void announce(int code, void * data = nullptr) const;

    /// Whether a later command of the same class changes the same thing.
    virtual bool isSameTarget(const HygUndoCommandBase &) const { return false; }
    /// Takes over what a later command has done already. False if that cannot be one step.
    virtual bool absorb(const HygUndoCommandBase &) { return false; }
    /// Whether nothing is left to undo.
    virtual bool isNothing() const { return false; }

private:
    HygProjectHandler & m_handler;
    QString m_field;
};
