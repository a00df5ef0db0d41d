#pragma once

#include <QVector>
#include <functional>

class QPushButton;
class QWidget;

/// What the edit toggle of a page switches. The edit state of a page is the text of its modify
/// button and nothing else: "修改" means view, "保存" means edit.
struct EditPage {
    QPushButton *modify;
    QVector<QWidget *> fields; ///< enabled in edit state, disabled in view state
    /// Guarded pages only: shown in edit state. A page without it is a bare page.
    QPushButton *cancel = nullptr;
    /// Guarded pages only: return and page buttons, locked in edit state.
    QVector<QPushButton *> navigation = {};

    bool isGuarded() const { return cancel != nullptr; }
};

/// What entering a page, cancelling and a passed save end in.
void showViewState(const EditPage &page);
void showEditState(const EditPage &page);

/// The click on the modify button. In view state the page becomes editable and nothing is sent. In
/// edit state `accept` checks the fields and shows the message of the first that fails; when it
/// returns true, `send` sends the set-message and the page goes back to view state (a bare page
/// sends first, a guarded page last). Any other text on the button: nothing happens.
void pressModify(const EditPage &page, const std::function<bool()> &accept,
                 const std::function<void()> &send);
