#include "undo/HygUndoCommandBase.h"

#include "document/HygProjectHandler.h"

#include <KOR/Exception.h>

#include <typeinfo>

namespace {

HygProjectHandler & openHandler() {
    HygProjectHandler * handler = HygProjectHandler::instance();
    if (handler == nullptr || !handler->hasProject())
        throw KOR::Exception("No project is open.", "[HygUndoCommandBase::HygUndoCommandBase]");
    return *handler;
}

} // namespace

HygUndoCommandBase::HygUndoCommandBase(const QString & text) : QUndoCommand(text), m_handler(openHandler()) {}

HYGRION::Project & HygUndoCommandBase::theProject() const {
    return m_handler.mutableProject();
}

void HygUndoCommandBase::announce(int code, void * data) const {
    m_handler.setModified(code, data);
}

bool HygUndoCommandBase::mergeWith(const QUndoCommand * other) {
    const auto * later = dynamic_cast<const HygUndoCommandBase *>(other);
    if (later == nullptr || typeid(*later) != typeid(*this) || later->m_field != m_field ||
        &later->m_handler != &m_handler || !isSameTarget(*later) || !absorb(*later))
        return false;
    setText(later->text());
    setObsolete(isNothing());
    return true;
}
