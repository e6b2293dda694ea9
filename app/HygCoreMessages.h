#pragma once

#include <QString>

/// What the libraries and the solver say, which is English: the messages that users meet often are known here and stand in
/// the user's language, all others are handed on as they are.
namespace HygCoreMessages {

/// A message or a story of several lines, each line translated if it is known.
QString translated(const QString & story);

/// "interface 'Outside'", with the word in the user's language.
QString translatedPlace(const QString & place);

/// A sentence of the editor that says what happened, and below it what the library has to say.
QString told(const QString & sentence, const QString & story);

} // namespace HygCoreMessages
