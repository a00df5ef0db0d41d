#pragma once

#include "wire/ids.h"

#include <QVector>

/// What the pages have asked and the controller has not answered yet, so that answers that come
/// late find the number that the operator wants.
///
/// The rule for replies that name a number of a selector, and the numbers of several at once:
///
/// - Every reply selects the numbers that it names. That includes one that nobody asked for.
/// - When that turns a selector to another row, the page asks anew. Only the answer to such a read,
///   which a selection sent and no operator, is dropped when the row is another one by then: it
///   neither selects nor fills.
///
/// So a selection leads to one more answer and no further, and answers do not chase each other when
/// several are under way; and as the answer to the operator's last choice comes last, that is where
/// the selectors come to rest.
///
/// Answers to reads of the same numbers count in the order in which they were asked. A controller
/// answers in order: a read is passed over when a later one with the same kind of reply is answered
/// before it. Its answer was lost, or is late against all order, and it counts then only when no
/// other read of its numbers is open. So a lost answer neither takes a true one away nor makes what
/// a selection asked look like the operator's question.
namespace reads {

/// The numbers that a read asks for or a reply names, one for each selector of the page, as they
/// stand in the messages: row plus 1, 0 without a row.
using Numbers = QVector<int>;

/// What is asked while one lives was asked by a reply's selection.
class Selection {
public:
    Selection();
    ~Selection();
    Selection(const Selection &) = delete;
    Selection &operator=(const Selection &) = delete;
};

/// A read goes out whose answer is that reply. It is kept until it is answered, the link is lost or
/// the operator works with another robot; without a link nothing is kept, and of too many the
/// oldest go.
void note(wire::reply::Id answer, const Numbers &numbers);

/// A reply has come: whether it is the answer to a read that a selection sent. An answer in several
/// replies counts with the last of them.
bool answersSelection(wire::reply::Id answer, const Numbers &numbers, bool isLast = true);

/// Whether an answer is still to come; one that a later answer has overtaken is not waited for.
bool areOpen();

} // namespace reads
