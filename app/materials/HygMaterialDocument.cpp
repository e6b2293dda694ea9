#include "materials/HygMaterialDocument.h"

#include <KOR/Exception.h>

#include <algorithm>

namespace {

constexpr int CHECK_MS = 120;
constexpr std::size_t UNDO_MEMORY = 128u << 20; ///< [bytes]
constexpr std::size_t FEWEST_STEPS = 10;
constexpr std::size_t MOST_STEPS = 200;

} // namespace

class HygMaterialDocument::Command : public QUndoCommand {
public:
    Command(HygMaterialDocument & document, const QString & text, MaterialPtr after, QString field)
        : QUndoCommand(text), m_document(document), m_before(document.m_material), m_after(std::move(after)),
          m_field(std::move(field)) {}

    void undo() override { m_document.set(m_before); }
    void redo() override { m_document.set(m_after); }
    int id() const override { return m_field.isEmpty() ? -1 : 1; }
    bool mergeWith(const QUndoCommand * other) override {
        const auto & later = static_cast<const Command &>(*other);
        if (later.m_field != m_field)
            return false;
        m_after = later.m_after;
        setObsolete(*m_after == *m_before);
        return true;
    }

private:
    HygMaterialDocument & m_document;
    MaterialPtr m_before;
    MaterialPtr m_after;
    QString m_field;
};

HygMaterialDocument::HygMaterialDocument(MM::Material material, QObject * parent)
    : QObject(parent), m_material(std::make_shared<const MM::Material>(std::move(material))) {
    m_threads.setMaxThreadCount(1);
    m_checkTimer.setSingleShot(true);
    m_checkTimer.setInterval(CHECK_MS);
    connect(&m_checkTimer, &QTimer::timeout, this, &HygMaterialDocument::startCheck);
    // Each step keeps the whole material; of those with long tables there are fewer.
    constexpr std::size_t COPIES = 8; // points as given and as prepared, slopes and search tables
    const std::size_t size = m_material->content().size() * COPIES + 1;
    m_undoStack.setUndoLimit(static_cast<int>(std::clamp(UNDO_MEMORY / size, FEWEST_STEPS, MOST_STEPS)));
    startCheck();
}

HygMaterialDocument::~HygMaterialDocument() {
    m_threads.clear();
    m_threads.waitForDone();
}

void HygMaterialDocument::change(const QString & text, const std::function<void(MM::Material &)> & edit,
                                 const QString & field) {
    auto changed = std::make_shared<MM::Material>(*m_material);
    edit(*changed);
    if (!(*changed == *m_material))
        m_undoStack.push(new Command(*this, text, std::move(changed), field));
}

void HygMaterialDocument::set(MaterialPtr material) {
    m_material = std::move(material);
    ++m_version;
    emit changed();
    m_checkTimer.start();
}

HygMaterialDocument::Checked HygMaterialDocument::check(const MM::Material & material) {
    Checked result;
    result.findings = MM::checkMaterial(material);
    try {
        MM::Material read;
        read.readContent(material.content(),
                         material.m_path.empty() ? MM::Material::pathWithId("new", material.m_id) : material.m_path);
    } catch (const KOR::Exception & ex) {
        result.refusal = QString::fromStdString(ex.cause());
    }
    auto prepared = std::make_shared<MM::Material>(material);
    try {
        prepared->prepareCalculation();
    } catch (const KOR::Exception &) {
        // The findings say what is missing; what could be prepared is shown.
    }
    result.prepared = std::move(prepared);
    return result;
}

void HygMaterialDocument::startCheck() {
    m_threads.clear();
    m_threads.start([this, material = m_material, version = m_version] {
        Checked result = check(*material);
        QMetaObject::invokeMethod(
            this,
            [this, result = std::move(result), version] {
                if (version != m_version)
                    return;
                m_checked = result;
                emit checked();
            },
            Qt::QueuedConnection);
    });
}

void HygMaterialDocument::checkNow() {
    m_checkTimer.stop();
    m_checked = check(*m_material);
    emit checked();
}

void HygMaterialDocument::save(const QString & path) {
    checkNow();
    if (!refusal().isEmpty())
        throw KOR::Exception(KOR::Exception(refusal().toStdString(), "[HygMaterialDocument::save]"),
                             "The material is not saved, since its file could not be read again.",
                             "[HygMaterialDocument::save]");
    MM::Material saved = *m_material;
    saved.write(path.toStdString());
    m_material = std::make_shared<const MM::Material>(std::move(saved));
    m_undoStack.setClean();
}
