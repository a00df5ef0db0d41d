// The smallest host: its questions, its main window, and the pages of its siblings, of which it has
// none. A question is a window that blocks the others by itself, so that input needs no gate.

#include "eventlog.h"
#include "inputgate.h"
#include "newtechnologywidget.h"
#include "promptwidget.h"
#include "veltrixwidgetfoundation.h"

#include <QCloseEvent>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

InputGate::InputGate(QObject *parent) : QObject(parent) { }

InputGate *InputGate::getInstance()
{
    static InputGate *const instance = new InputGate;
    return instance;
}

bool InputGate::allows(const QWidget *) const
{
    return true;
}

bool InputGate::eventFilter(QObject *watched, QEvent *event)
{
    return QObject::eventFilter(watched, event);
}

// ---- questions ----------------------------------------------------------------------------------

PromptWidget *PromptWidget::getInstance()
{
    static PromptWidget *const instance = new PromptWidget;
    return instance;
}

PromptWidget::PromptWidget(QWidget *parent)
    : QWidget(parent, Qt::Dialog), m_question(new QLabel(this)), m_confirm(new QPushButton(this)),
      m_cancel(new QPushButton(this))
{
    setWindowModality(Qt::ApplicationModal);
    m_confirm->setObjectName(QStringLiteral("promptConfirm"));
    m_confirm->setText(QStringLiteral("OK"));
    m_cancel->setObjectName(QStringLiteral("promptCancel"));
    m_cancel->setText(QStringLiteral("Cancel"));
    auto *layout = new QVBoxLayout(this);
    for (QWidget *widget : {static_cast<QWidget *>(m_question), static_cast<QWidget *>(m_confirm),
                            static_cast<QWidget *>(m_cancel)})
        layout->addWidget(widget);
    connect(m_confirm, &QPushButton::clicked, this, [this] { answer(true); });
    connect(m_cancel, &QPushButton::clicked, this, [this] { answer(false); });
}

void PromptWidget::repaint_widget(PromptWidget::WIDGETNAME name, const QString &text)
{
    m_prepared = name;
    m_text = text;
}

void PromptWidget::set_widget_state(PromptWidget::WIDGETNAME name)
{
    ++m_showings;
    m_shown = name;
    m_shownText = m_prepared == name ? m_text : QString();
    m_question->setText(QStringLiteral("%1: %2").arg(name).arg(m_shownText));
    EventLog::getInstance()->record(QStringLiteral("prompt"), {int(name), m_shownText});
    show();
}

/// Closes itself where the page has not done it, unless the answer led to the next question.
void PromptWidget::answer(bool confirmed)
{
    const quint64 showing = m_showings;
    emitAnswer(m_shown, confirmed, 1, 1);
    if (showing == m_showings)
        close();
}

void PromptWidget::emitAnswer(WIDGETNAME name, bool confirmed, int target, int picture)
{
    switch (name) {
    case PROMPT_WIZARD_RESET:
        return confirmed ? emit rePageReData() : emit rePageReData2();
    case PROMPT_WIZARD_EXIT:
        return confirmed ? emit exitPalFile() : emit cancelExitPalFile();
    case PROMPT_COPY_PALLET:
        return confirmed ? emit copyPalletParameter(target) : emit cancelCopyPalletParameter();
    case PROMPT_CLEAN_PALLET:
        return confirmed ? emit cleanPalletParameter() : emit cancelCleanPalletParameter();
    case PROMPT_COPY_PICTURE:
        return confirmed ? emit copyPalletPicture(target, picture) : emit cancelCopyPalletPicture();
    case PROMPT_EASY_MODE:
        return confirmed ? emit easyMode() : emit CancelEasyMode();
    case PROMPT_COMPLETE_MODE:
        return confirmed ? emit completeMode() : emit CancelCompleteMode();
    case PROMPT_CLEAN_TRACK:
        return confirmed ? emit cleanTrackParameter() : emit cancelCleanTrackParameter();
    case PROMPT_COPY_TRACK:
        return confirmed ? emit copyTrackParameter(target) : emit cancelCopyTrackParameter();
    case PROMPT_DELETE_PROJECT:
        return confirmed ? emit deleteXmlJob() : emit cancelDeleteXmlJob();
    default:
        return;
    }
}

/// The window's own button is a "cancel".
void PromptWidget::closeEvent(QCloseEvent *event)
{
    if (event->spontaneous() && m_shown != PROMPT_NONE) {
        event->ignore();
        answer(false);
        return;
    }
    QWidget::closeEvent(event);
}

void PromptWidget::hideEvent(QHideEvent *event)
{
    if (m_shown != PROMPT_NONE)
        EventLog::getInstance()->record(QStringLiteral("promptClosed"), {int(m_shown)});
    m_shown = PROMPT_NONE;
    QWidget::hideEvent(event);
}

void PromptWidget::paintEvent(QPaintEvent *event)
{
    QWidget::paintEvent(event);
}

void PromptWidget::keyPressEvent(QKeyEvent *event)
{
    QWidget::keyPressEvent(event);
}

void PromptWidget::changeEvent(QEvent *event)
{
    QWidget::changeEvent(event);
}

bool PromptWidget::focusNextPrevChild(bool next)
{
    return QWidget::focusNextPrevChild(next);
}

bool PromptWidget::eventFilter(QObject *watched, QEvent *event)
{
    return QWidget::eventFilter(watched, event);
}

// ---- windows ------------------------------------------------------------------------------------

/// Never shown: the pages only hand it the signal of the button for the user coordinates.
VeltrixWidgetFoundation::VeltrixWidgetFoundation(QWidget *parent) : QWidget(parent) { }

VeltrixWidgetFoundation::~VeltrixWidgetFoundation() = default;

VeltrixWidgetFoundation *VeltrixWidgetFoundation::getGlobalMainWindow()
{
    static VeltrixWidgetFoundation *const instance = new VeltrixWidgetFoundation;
    return instance;
}

void VeltrixWidgetFoundation::showWidgetTitle(int, int, int) { }

void VeltrixWidgetFoundation::showArea(Area) { }

void VeltrixWidgetFoundation::showJobs(int) { }

void VeltrixWidgetFoundation::changeEvent(QEvent *event)
{
    QWidget::changeEvent(event);
}

void VeltrixWidgetFoundation::paintEvent(QPaintEvent *event)
{
    QWidget::paintEvent(event);
}

/// A window of its own with nothing but the way back.
NewTechnologyWidget::NewTechnologyWidget(QWidget *parent)
    : QWidget(parent), m_back(new QPushButton(QStringLiteral("Back"), this))
{
    connect(m_back, &QPushButton::clicked, this, [this] {
        hide();
        emit backRequested();
    });
}

NewTechnologyWidget *NewTechnologyWidget::getInstance()
{
    static NewTechnologyWidget *const instance = new NewTechnologyWidget;
    return instance;
}

void NewTechnologyWidget::showWgt(TechWidgetType type)
{
    m_type = type;
    show();
}

void NewTechnologyWidget::changeEvent(QEvent *event)
{
    QWidget::changeEvent(event);
}
