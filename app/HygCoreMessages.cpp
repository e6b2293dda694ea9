#include "HygCoreMessages.h"

#include <QCoreApplication>
#include <QRegularExpression>
#include <QStringList>

#include <vector>

namespace {

constexpr const char * CONTEXT = "HygCoreMessages";

// The special before the general: the first that fits counts. "%1Parameter" begins with the definition, or with nothing.
// clang-format off
constexpr const char * MESSAGES[] = {
    // of the check of projects
    QT_TRANSLATE_NOOP("HygCoreMessages", "%1 of %2 cells have no material."),
    QT_TRANSLATE_NOOP("HygCoreMessages", "The identification name is empty."),
    QT_TRANSLATE_NOOP("HygCoreMessages", "The identification name is not unique."),
    QT_TRANSLATE_NOOP("HygCoreMessages", "File '%1' of '%2' does not exist."),
    QT_TRANSLATE_NOOP("HygCoreMessages", "Invalid material assignment '%1' with name '%2'. Check the ID names of your assignments!"),
    QT_TRANSLATE_NOOP("HygCoreMessages", "Boundary condition with id name '%1' referenced from interface '%2' is not defined."),
    QT_TRANSLATE_NOOP("HygCoreMessages", "Output grid with id name '%1' referenced from output file '%2' is not defined."),
    QT_TRANSLATE_NOOP("HygCoreMessages", "Climate condition with id name '%1' referenced from %2 '%3' is not defined."),
    QT_TRANSLATE_NOOP("HygCoreMessages", "%1 with id name '%2' referenced from assignment '%3' is not defined."),
    QT_TRANSLATE_NOOP("HygCoreMessages", "An index in the range '%1' in assignment '%2' is out of grid range."),
    QT_TRANSLATE_NOOP("HygCoreMessages", "%1Parameter '%2' is missing for kind '%3'."),
    QT_TRANSLATE_NOOP("HygCoreMessages", "%1Parameter '%2' is %3, it must be positive."),
    QT_TRANSLATE_NOOP("HygCoreMessages", "%1Parameter '%2' is %3, it must be positive, at most %4."),
    QT_TRANSLATE_NOOP("HygCoreMessages", "%1Parameter '%2' is %3, it must not be negative."),
    QT_TRANSLATE_NOOP("HygCoreMessages", "%1Parameter '%2' is %3, it must be at least %4."),
    QT_TRANSLATE_NOOP("HygCoreMessages", "%1Parameter '%2' is %3, it must lie within %4..%5."),
    QT_TRANSLATE_NOOP("HygCoreMessages", "Parameter '%1' (%2) must not exceed '%3' (%4)."),
    QT_TRANSLATE_NOOP("HygCoreMessages", "Parameter '%1' of the interval must lie after its start."),
    QT_TRANSLATE_NOOP("HygCoreMessages", "Climate condition '%1' has no climate data file."),
    QT_TRANSLATE_NOOP("HygCoreMessages", "Missing parameter in climate condition '%1'!"),
    // of the solver
    QT_TRANSLATE_NOOP("HygCoreMessages", "The project names no climate data file of its location."),
    QT_TRANSLATE_NOOP("HygCoreMessages", "Climate data file '%1' cannot be read."),
    QT_TRANSLATE_NOOP("HygCoreMessages", "Climate data file '%1' holds no values of quantity '%2'."),
    QT_TRANSLATE_NOOP("HygCoreMessages", "Climate condition '%1' cannot be used."),
    QT_TRANSLATE_NOOP("HygCoreMessages", "Material '%1' lacks a function that the calculation needs."),
    QT_TRANSLATE_NOOP("HygCoreMessages", "Material '%1' cannot be used for moisture transport."),
    QT_TRANSLATE_NOOP("HygCoreMessages", "Quantity %1 belongs to sides, it cannot be assigned to elements."),
    QT_TRANSLATE_NOOP("HygCoreMessages", "Quantity %1 belongs to elements, it cannot be assigned to sides."),
    QT_TRANSLATE_NOOP("HygCoreMessages", "Error in output '%1'."),
    QT_TRANSLATE_NOOP("HygCoreMessages", "The interrupted run cannot be continued."),
    QT_TRANSLATE_NOOP("HygCoreMessages", "The run cannot start."),
    QT_TRANSLATE_NOOP("HygCoreMessages", "Restart file '%1' cannot be used."),
    QT_TRANSLATE_NOOP("HygCoreMessages", "Grid, materials or balances of the project are no longer those of the interrupted run."),
    QT_TRANSLATE_NOOP("HygCoreMessages", "The outputs of the project are no longer those of the interrupted run."),
    QT_TRANSLATE_NOOP("HygCoreMessages", "The block-tridiagonal solver is for one-dimensional constructions; choose another one."),
    QT_TRANSLATE_NOOP("HygCoreMessages", "Out of memory."),
    QT_TRANSLATE_NOOP("HygCoreMessages", "cell %1 (%2, at %3)"),
    // of files
    QT_TRANSLATE_NOOP("HygCoreMessages", "File '%1' doesn't exist."),
    QT_TRANSLATE_NOOP("HygCoreMessages", "Cannot write result file '%1': %2"),
    QT_TRANSLATE_NOOP("HygCoreMessages", "Cannot write file '%1': %2"),
    QT_TRANSLATE_NOOP("HygCoreMessages", "Cannot open file '%1': %2"),
    QT_TRANSLATE_NOOP("HygCoreMessages", "Cannot read file '%1': %2"),
    QT_TRANSLATE_NOOP("HygCoreMessages", "Error reading DataIO file '%1'"),
    QT_TRANSLATE_NOOP("HygCoreMessages", "File format not recognized!"),
    QT_TRANSLATE_NOOP("HygCoreMessages", "Error on reading binary header from file."),
    QT_TRANSLATE_NOOP("HygCoreMessages", "The file has version %1, newer than %2 of this program."),
    QT_TRANSLATE_NOOP("HygCoreMessages", "Error in line %1 of project file:"),
    QT_TRANSLATE_NOOP("HygCoreMessages", "Error in XML file, line %1: %2"),
    QT_TRANSLATE_NOOP("HygCoreMessages", "Missing '%1' attribute in %2 element."),
    QT_TRANSLATE_NOOP("HygCoreMessages", "Expected '%1' attribute in %2."),
    QT_TRANSLATE_NOOP("HygCoreMessages", "Unknown XML tag with name '%1' in %2 element."),
    QT_TRANSLATE_NOOP("HygCoreMessages", "Unknown XML tag with name '%1' in '%2' section."),
    QT_TRANSLATE_NOOP("HygCoreMessages", "Unknown element '%1' in %2."),
    QT_TRANSLATE_NOOP("HygCoreMessages", "Section '%1' is given more than once."),
    QT_TRANSLATE_NOOP("HygCoreMessages", "Error reading elements in section '%1'."),
    QT_TRANSLATE_NOOP("HygCoreMessages", "Error reading %1 element."),
    QT_TRANSLATE_NOOP("HygCoreMessages", "Expected HygrionProject as root node in XML file."),
    QT_TRANSLATE_NOOP("HygCoreMessages", "Unit '%1' not found."),
    QT_TRANSLATE_NOOP("HygCoreMessages", "Could not convert '%1' into value."),
    QT_TRANSLATE_NOOP("HygCoreMessages", "The project was written by a newer version of the program: its files have version %1, this program reads files up to version %2."),
    QT_TRANSLATE_NOOP("HygCoreMessages", "The project holds something that could not be read again. Please mend it and save then."),
    // of the start and of projects that are opened and saved
    QT_TRANSLATE_NOOP("HygCoreMessages", "Project '%1' opened: %2 x %3 x %4 cells, %5 materials, %6 assignments."),
    QT_TRANSLATE_NOOP("HygCoreMessages", "Project '%1' read again."),
    QT_TRANSLATE_NOOP("HygCoreMessages", "Placeholder '%1' is being used in one or more referenced files, but not defined within the placeholder section"),
    QT_TRANSLATE_NOOP("HygCoreMessages", "Placeholder '%1' is built in, its definition in the project is ignored."),
    QT_TRANSLATE_NOOP("HygCoreMessages", "Error reading material data file '%1'"),
    QT_TRANSLATE_NOOP("HygCoreMessages", "Installing translator for language: '%1'."),
    QT_TRANSLATE_NOOP("HygCoreMessages", "Could not load system translator file: '%1'."),
    QT_TRANSLATE_NOOP("HygCoreMessages", "Could not load application translator file: '%1'."),
    QT_TRANSLATE_NOOP("HygCoreMessages", "Cannot create the user data directory '%1'."),
    QT_TRANSLATE_NOOP("HygCoreMessages", "'%1' is not a journal."),
    QT_TRANSLATE_NOOP("HygCoreMessages", "The head of journal '%1' cannot be read."),
    QT_TRANSLATE_NOOP("HygCoreMessages", "A journal of unsaved changes cannot be used."),
    // of the clipboard
    QT_TRANSLATE_NOOP("HygCoreMessages", "The text holds no block of cells."),
    QT_TRANSLATE_NOOP("HygCoreMessages", "'%1' is defined neither in this project nor among the copied cells."),
};
constexpr const char * WORDS[] = {
    QT_TRANSLATE_NOOP("HygCoreMessages", "material"),
    QT_TRANSLATE_NOOP("HygCoreMessages", "interface"),
    QT_TRANSLATE_NOOP("HygCoreMessages", "initial condition"),
    QT_TRANSLATE_NOOP("HygCoreMessages", "field condition"),
    QT_TRANSLATE_NOOP("HygCoreMessages", "contact condition"),
    QT_TRANSLATE_NOOP("HygCoreMessages", "boundary condition"),
    QT_TRANSLATE_NOOP("HygCoreMessages", "climate condition"),
    QT_TRANSLATE_NOOP("HygCoreMessages", "schedule"),
    QT_TRANSLATE_NOOP("HygCoreMessages", "output file"),
    QT_TRANSLATE_NOOP("HygCoreMessages", "output grid"),
    QT_TRANSLATE_NOOP("HygCoreMessages", "solution"),
    QT_TRANSLATE_NOOP("HygCoreMessages", "assignment"),
    QT_TRANSLATE_NOOP("HygCoreMessages", "assessment"),
    QT_TRANSLATE_NOOP("HygCoreMessages", "Assignments"),
    QT_TRANSLATE_NOOP("HygCoreMessages", "Discretization"),
    QT_TRANSLATE_NOOP("HygCoreMessages", "Outputs"),
    QT_TRANSLATE_NOOP("HygCoreMessages", "Init"),
};
// clang-format on

struct Pattern {
    QRegularExpression expression;
    const char * text;
};

const std::vector<Pattern> & patterns() {
    static const std::vector<Pattern> PATTERNS = [] {
        std::vector<Pattern> made;
        for (const char * text : MESSAGES) {
            QString expression = QRegularExpression::escape(QString::fromUtf8(text));
            static const QRegularExpression PLACEHOLDER(QStringLiteral("\\\\%\\d"));
            expression.replace(PLACEHOLDER, QStringLiteral("(.*)"));
            made.push_back({QRegularExpression(QRegularExpression::anchoredPattern(expression)), text});
        }
        return made;
    }();
    return PATTERNS;
}

QString word(const QString & english) {
    return QCoreApplication::translate(CONTEXT, english.toUtf8().constData());
}

QString translatedLine(const QString & line);

/// A value, or a message within a message.
QString inner(const QString & value) {
    return value.endsWith('.') ? translatedLine(value) : value;
}

QString translatedLine(const QString & line) {
    for (const Pattern & pattern : patterns()) {
        const QRegularExpressionMatch match = pattern.expression.match(line);
        if (!match.hasMatch())
            continue;
        // One pass, so that a value that holds "%1" stays as it is.
        const QString text = QCoreApplication::translate(CONTEXT, pattern.text);
        QString filled;
        for (int i = 0; i < text.size(); ++i) {
            const int number = text[i] == '%' && i + 1 < text.size() ? text[i + 1].digitValue() : -1;
            filled += number > 0 ? inner(match.captured(number)) : QString(text[i]);
            i += number > 0 ? 1 : 0;
        }
        return filled;
    }
    return line;
}

} // namespace

QString HygCoreMessages::translated(const QString & story) {
    QStringList lines = story.split('\n');
    for (QString & line : lines)
        line = translatedLine(line);
    return lines.join('\n');
}

QString HygCoreMessages::translatedPlace(const QString & place) {
    const int quote = place.indexOf(QLatin1String(" '"));
    const QString kind = place.left(quote);
    for (const char * known : WORDS)
        if (kind == QLatin1String(known))
            return quote < 0 ? word(kind) : word(kind) + place.mid(quote);
    return place;
}

QString HygCoreMessages::told(const QString & sentence, const QString & story) {
    return story.isEmpty() ? sentence : sentence + '\n' + translated(story);
}
