#pragma once

#include "undo/HygUndoCommandBase.h"
#include "undo/HygUndoRows.h"

#include <KOR/Exception.h>

#include <variant>

/// The four shapes of a command over a row of HygUndoRows.
namespace HygUndoTemplates {

/// A project with two definitions of one kind and name could not be read again.
/// Throws "There is already a %1 with the name '%2'." ("[HygUndoTemplates::requireNewName]").
template <typename List> void requireNewName(const List & list, HYGRION::definition_t kind, const std::string & name) {
    if (std::any_of(list.begin(), list.end(), [&name](const auto & item) { return item.m_name == name; }))
        throw KOR::Exception(
            KOR::text("There is already a %1 with the name '%2'.", HYGRION::definitionWord(kind), name),
            "[HygUndoTemplates::requireNewName]");
}

/// Appends an item to the list of its kind; undo removes the last one, which is the same.
template <typename... Rows> class AddCommand : public HygUndoCommandBase {
public:
    using Item = std::variant<typename Rows::Item...>;
    /// Throws as requireNewName().
    AddCommand(const QString & text, Item item) : HygUndoCommandBase(text), m_item(std::move(item)) {
        withRow([this]<typename Row>(Row) {
            requireNewName(Row::list(theProject()), Row::DEFINITION, std::get<typename Row::Item>(m_item).m_name);
        });
    }

    void redo() override {
        withRow([this]<typename Row>(Row) {
            Row::list(theProject()).push_back(std::get<typename Row::Item>(m_item));
            announce(Row::CODES.added, HygModification::data(Row::KIND));
        });
    }
    void undo() override {
        withRow([this]<typename Row>(Row) {
            Row::list(theProject()).pop_back();
            announce(Row::CODES.addedUndone, HygModification::data(Row::KIND));
        });
    }

private:
    template <typename Body> void withRow(const Body & body) {
        ((std::holds_alternative<typename Rows::Item>(m_item) ? body(Rows()) : void()), ...);
    }

    Item m_item;
};

/// Exchanges one item. When its name changes, the references to it follow; undo takes back just these.
template <typename Row> class ModifyCommand : public HygUndoCommandBase {
public:
    /// The index must be one of the list when the command is pushed. Throws as requireNewName() when it is renamed.
    ModifyCommand(const QString & text, unsigned int index, typename Row::Item changed)
        : HygUndoCommandBase(text), m_index(index), m_item(std::move(changed)) {
        if (item().m_name != m_item.m_name)
            requireNewName(Row::list(theProject()), Row::DEFINITION, m_item.m_name);
    }

    void redo() override {
        exchange();
        const std::string & oldName = m_item.m_name;
        const std::string & newName = item().m_name;
        m_references.clear();
        if (oldName != newName && !oldName.empty()) {
            m_references = theProject().referencesTo(Row::DEFINITION, oldName);
            theProject().setReferences(m_references, newName);
        }
        announce(Row::CODES.modified, HygModification::data(Row::KIND));
    }
    void undo() override {
        if (!m_references.empty())
            theProject().setReferences(m_references, m_item.m_name);
        exchange();
        announce(Row::CODES.modified, HygModification::data(Row::KIND));
    }

protected:
    bool isSameTarget(const HygUndoCommandBase & later) const override {
        return static_cast<const ModifyCommand &>(later).m_index == m_index;
    }
    bool absorb(const HygUndoCommandBase & other) override {
        const auto & later = static_cast<const ModifyCommand &>(other);
        const bool isRenamedOnce = m_item.m_name == later.m_item.m_name;
        const bool isRenamedLater = item().m_name != later.m_item.m_name;
        if (!isRenamedOnce && isRenamedLater && m_references != later.m_references)
            return false; // two renamings that met different references are two steps
        if (isRenamedOnce)
            m_references = later.m_references;
        return true;
    }
    bool isNothing() const override { return item() == m_item; }

private:
    typename Row::Item & item() const {
        auto & list = Row::list(theProject());
        if (m_index >= list.size())
            throw KOR::Exception(KOR::text("Definition index %1 out of range.", m_index), "[ModifyCommand::item]");
        return list[m_index];
    }
    void exchange() { std::swap(item(), m_item); }

    unsigned int m_index;
    typename Row::Item m_item;
    std::vector<std::size_t> m_references; ///< that were renamed, see HYGRION::Project::referencesTo
};

/// Takes an item out of the list of a kind; undo inserts it where it was.
template <typename... Rows> class RemoveCommand : public HygUndoCommandBase {
public:
    void redo() override {
        withRow([this]<typename Row>(Row) {
            auto & list = Row::list(theProject());
            m_item = std::move(list.at(m_index));
            list.erase(list.begin() + m_index);
            announce(Row::CODES.removed, HygModification::data(Row::KIND));
        });
    }
    void undo() override {
        withRow([this]<typename Row>(Row) {
            auto & list = Row::list(theProject());
            list.insert(list.begin() + m_index, std::move(std::get<typename Row::Item>(m_item)));
            announce(Row::CODES.removedUndone, HygModification::data(Row::KIND));
        });
    }

protected:
    /// \param kind Row::KIND of one of the rows
    /// \param message thrown, with %1 for the index, as \p where if the project has no such item
    RemoveCommand(const QString & text, int kind, unsigned int index, const char * message, const char * where)
        : HygUndoCommandBase(text), m_kind(kind), m_index(index) {
        bool isThere = false;
        withRow([&]<typename Row>(Row) { isThere = index < Row::list(theProject()).size(); });
        if (!isThere)
            throw KOR::Exception(KOR::text(message, index), where);
    }

private:
    template <typename Body> void withRow(const Body & body) { ((Rows::KIND == m_kind ? body(Rows()) : void()), ...); }

    int m_kind;
    unsigned int m_index;
    std::variant<typename Rows::Item...> m_item; ///< while it is taken out
};

/// Exchanges a section; undo and redo are the same.
template <typename Row> class SwapCommand : public HygUndoCommandBase {
public:
    SwapCommand(const QString & text, typename Row::Value value)
        : HygUndoCommandBase(text), m_value(std::move(value)) {}

    void redo() override {
        Row::exchange(theProject(), m_value);
        announce(Row::MODIFIED);
    }
    void undo() override { redo(); }

protected:
    bool isSameTarget(const HygUndoCommandBase &) const override { return true; }
    bool absorb(const HygUndoCommandBase &) override { return true; } // the older state is here already
    bool isNothing() const override { return Row::get(theProject()) == m_value; }

private:
    typename Row::Value m_value;
};

} // namespace HygUndoTemplates
