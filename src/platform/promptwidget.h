#pragma once

#include <QWidget>

class QComboBox;
class QLabel;
class QPushButton;

/// The modal question of the pendant: one panel, laid over the main window, whose kind says the
/// wording, the answer buttons and which signals an answer gives. The asking page closes it.
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
        PROMPT_DELETE_PROJECT = 60
    };

    static PromptWidget *getInstance();

    /// Prepares the prompt of that kind: `text` names what it is about.
    void repaint_widget(PromptWidget::WIDGETNAME name, const QString &text);
    /// Shows the prompt of that kind.
    void set_widget_state(PromptWidget::WIDGETNAME name);

    /// The kind that is on screen; PROMPT_NONE when none is.
    WIDGETNAME currentWidget() const;
    /// The text that repaint_widget() was last given.
    QString text() const;

signals:
    // 48: leave the wizard and drop its data, by either of its two ways
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

private:
    explicit PromptWidget(QWidget *parent = nullptr);
};
