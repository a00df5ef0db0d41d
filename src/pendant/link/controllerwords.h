#pragma once

#include <QString>

/// Longest message of a controller that is shown, in characters.
constexpr int kLongestWord = 200;

/// What a message of the controller's status says, for the screen: a known word in the language of
/// the screen, anything else as it came, cut to kLongestWord. `holder` is the pendant that has
/// control, for the word that is about it; empty where the controller does not say it.
QString controllerWord(const QString &message, const QString &holder = {});

/// What the controller says of a message that it has not carried out, with its reason, a short text
/// of its own; without a reason where there is nothing printable in it.
QString refusalWord(const QString &reason);
