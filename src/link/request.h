#pragma once

#include "link/messages.h"

#include <initializer_list>
#include <json/json.h>

class QComboBox;

/// Building and sending a request to the controller.
namespace request {

/// {"robot": the current robot}
Json::Value forRobot();

/// forRobot() with the process number as an integer, the row of `selector` plus 1, under `key`.
Json::Value forRow(const QComboBox *selector, const char *key = "craftID");

/// forRobot() with the process number as a real, the text of `selector` read as a number, under
/// `key`; the form that most set-messages have. A text that is no number gives 0.
Json::Value forText(const QComboBox *selector, const char *key = "craftID");

/// Sends `body` as one line of JSON.
void send(message::Id id, const Json::Value &body);

/// Sends a read of what belongs to the row of `selector`, with forRow() as its body, and notes that
/// an answer for that row is to come.
void ask(message::Id id, QComboBox *selector);
/// The same with a body of its own, for the rows of several.
void ask(message::Id id, std::initializer_list<QComboBox *> selectors, const Json::Value &body);

/// An answer for that row has come: whether it was asked for by ask() and not answered before.
bool takeAnswer(QComboBox *selector, int row);

/// Sends an empty body, as the reads of the laser family have it.
void sendEmpty(message::Id id);

} // namespace request
