#pragma once

#include <QPointer>
#include <QWidget>
#include <functional>

class QLabel;
class QPushButton;
class TargetChooser;

/// The modal question of the pendant: one panel, laid over the main window, whose kind says the
/// wording, the answer buttons and which signals an answer gives.
///
/// While it is up it alone gets the operator's input. An answer gives its one signal once. The
/// asking page closes the prompt in its answer slot; when no slot did, the prompt closes itself
/// after the signal, so that the pendant is never left behind a question that is answered. A prompt
/// that is shown while another one is up takes its place.
///
/// Its buttons are named "promptConfirm" and "promptCancel", the target choosers "promptTarget" and
/// "promptTargetPicture".
class PromptWidget : public QWidget {
    Q_OBJECT
public:
    enum WIDGETNAME {
        PROMPT_NONE = 0,
        PROMPT_USER_COORDS_DONE = 7,
        PROMPT_USER_COORDS_FAILED = 8,
        PROMPT_WIZARD_RESET = 48,
        PROMPT_WIZARD_EXIT = 49,
        PROMPT_COPY_PALLET = 51,
        PROMPT_CLEAN_PALLET = 52,
        PROMPT_COPY_PICTURE = 53,
        PROMPT_EASY_MODE = 54,
        PROMPT_COMPLETE_MODE = 55,
        PROMPT_CLEAN_TRACK = 56,
        PROMPT_COPY_TRACK = 57,
        PROMPT_DELETE_PROJECT = 60,
        PROMPT_RESTORE_STORE = 90,
        PROMPT_EMPTY_STORE = 91
    };

    static PromptWidget *getInstance();

    /// Prepares the prompt of that kind: `text` names what it is about.
    void repaint_widget(PromptWidget::WIDGETNAME name, const QString &text);
    /// Shows the prompt of that kind.
    void set_widget_state(PromptWidget::WIDGETNAME name);

    /// Shows the prompt of that kind for one asker alone: none of the answer signals is given,
    /// `answered` is called once instead, before the prompt closes itself. A prompt that ends
    /// without an answer, or that another one takes the place of, forgets it.
    void ask(PromptWidget::WIDGETNAME name, const QString &text,
             std::function<void(bool confirmed)> answered);

    /// Ends it with the answer that changes nothing, if it is up: who could answer is gone.
    void withdraw();

    /// Lays it above everything again, if it is up.
    void stayOnTop();

    /// The kind that is on screen; PROMPT_NONE when none is.
    WIDGETNAME currentWidget() const;
    /// The text that repaint_widget() was last given.
    QString text() const;
    /// The question as it reads on screen; empty when none is up.
    QString question() const;

    bool eventFilter(QObject *watched, QEvent *event) override;

signals:
    // 48: go back and drop the wizard's data; stay with it
    void rePageReData();
    void rePageReData2();
    // 49
    void exitPalFile();
    void cancelExitPalFile();
    // 51: the process number to copy to, 1 to 9
    void copyPalletParameter(int craft);
    void cancelCopyPalletParameter();
    // 52
    void cleanPalletParameter();
    void cancelCleanPalletParameter();
    // 53: process number and picture number to copy to, both 1 to 9
    void copyPalletPicture(int craft, int picture);
    void cancelCopyPalletPicture();
    // 54
    void easyMode();
    void CancelEasyMode();
    // 55
    void completeMode();
    void CancelCompleteMode();
    // 56
    void cleanTrackParameter();
    void cancelCleanTrackParameter();
    // 57: the conveyor number to copy to, 1 to 9
    void copyTrackParameter(int conveyor);
    void cancelCopyTrackParameter();
    // 60
    void deleteXmlJob();
    void cancelDeleteXmlJob();

protected:
    void paintEvent(QPaintEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    void closeEvent(QCloseEvent *event) override;
    void hideEvent(QHideEvent *event) override;
    void changeEvent(QEvent *event) override;
    bool focusNextPrevChild(bool next) override;

private:
    explicit PromptWidget(QWidget *parent = nullptr);

    void build(WIDGETNAME name);
    void layOver(QWidget *host);
    void leaveHost();
    void place();
    void answer(bool confirmed);
    void emitAnswer(WIDGETNAME name, bool confirmed, int target, int picture);
    void ended();

    WIDGETNAME m_prepared = PROMPT_NONE; ///< kind that repaint_widget() was last given
    WIDGETNAME m_shown = PROMPT_NONE;
    QString m_text;
    QString m_shownText;
    quint64 m_showings = 0; ///< counts the showings, to tell one from the next
    bool m_answered = false;
    std::function<void(bool)> m_asker; ///< gets the answer; none: the signals do
    QPointer<QWidget> m_host;

    QLabel *m_title;
    QLabel *m_question;
    QLabel *m_targetLabel;
    QLabel *m_pictureLabel;
    TargetChooser *m_target;
    TargetChooser *m_picture;
    QPushButton *m_confirm;
    QPushButton *m_cancel;
};
