#include "materials/HygMaterialDocument.h"

#include "document/HygBackground.h"
#include "materials/HygMaterialFunctions.h"

#include <KOR/Exception.h>

#include <algorithm>

namespace {

constexpr int CHECK_MS = 120;
constexpr std::size_t UNDO_MEMORY = 128u << 20; ///< [bytes]
constexpr std::size_t FEWEST_STEPS = 10;
constexpr std::size_t MOST_STEPS = 200;
constexpr std::size_t PER_POINT = 64; ///< [bytes] of a function: as given, with slopes, and as prepared
constexpr std::size_t PER_LINE = 96;  ///< [bytes] of measured data

/// Roughly [bytes].
std::size_t memoryOf(const MM::Material & material) {
    std::size_t size = sizeof(MM::Material) + PER_LINE * material.m_measuredData.m_lines.size();
    for (const HygMaterialFunctions::Place & place : HygMaterialFunctions::places(material))
        size += PER_POINT * HygMaterialFunctions::spline(material, place).size();
    return size;
}

/// What the editor edits beside names and flags, whose blanks and order the reader may put right.
bool holdsTheSame(const MM::Material & a, const MM::Material & b) {
    return a.m_moistureStorage == b.m_moistureStorage && a.m_thermalStorage == b.m_thermalStorage &&
           a.m_moistureTransport == b.m_moistureTransport && a.m_thermalTransport == b.m_thermalTransport &&
           a.m_airTransport == b.m_airTransport && a.m_vaporContactResistance == b.m_vaporContactResistance &&
           a.m_measuredData == b.m_measuredData;
}

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
    m_undoStack.setUndoLimit(
        static_cast<int>(std::clamp(UNDO_MEMORY / memoryOf(*m_material), FEWEST_STEPS, MOST_STEPS)));
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
        if (!holdsTheSame(read, material))
            result.refusal = tr("Functions, models or measured data would not be read as they stand here.");
    } catch (const KOR::Exception & ex) {
        result.refusal = QString::fromStdString(ex.cause());
    }
    auto prepared = std::make_shared<MM::Material>(material);
    try {
        prepared->prepareCalculation();
    } catch (const KOR::Exception & ex) {
        result.unusable = QString::fromStdString(ex.cause()); // what could be prepared is shown
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
    m_checkTimer.stop();
    struct Saved {
        Checked checked;
        MM::Material material;
    };
    const auto saved = std::make_shared<Saved>(Saved{{}, *m_material});
    HygBackground::run(tr("Writing the material"), [saved, path] {
        saved->checked = check(saved->material);
        const std::string refusal = saved->checked.refusal.toStdString();
        if (!refusal.empty())
            throw KOR::Exception(KOR::Exception(refusal, "[HygMaterialDocument::save]"),
                                 "The material is not saved, since its file could not be read again.",
                                 "[HygMaterialDocument::save]");
        saved->material.write(path.toStdString());
    });
    m_material = std::make_shared<const MM::Material>(std::move(saved->material));
    m_checked = std::move(saved->checked);
    m_undoStack.setClean();
    emit checked();
}
