#pragma once

#include "link/messages.h"
#include "wire/ids.h"

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

/// Sends a read of what belongs to the row of `selector`, with forRow() as its body. `answer` is
/// the reply that answers it; link/reads.h says what that does to the row.
void ask(message::Id id, wire::reply::Id answer, const QComboBox *selector);
/// The same with a body of its own, for the rows of several.
void ask(message::Id id, wire::reply::Id answer, std::initializer_list<const QComboBox *> selectors,
         const Json::Value &body);

/// Sends an empty body, as the reads of the laser family have it.
void sendEmpty(message::Id id);

} // namespace request
