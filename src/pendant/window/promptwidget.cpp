#include "promptwidget.h"

#include "eventlog.h"
#include "inputgate.h"
#include "screenhost.h"
#include "setfontsize.h"
#include "targetchooser.h"

#include <QCoreApplication>
#include <QEvent>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QPainter>
#include <QPushButton>
#include <utility>

namespace {

using Signal = void (PromptWidget::*)();
using TargetSignal = void (PromptWidget::*)(int);

enum Chooser { NoTarget, OneTarget, TargetAndPicture };

/// What one kind of prompt says and which signals its answers give. The question holds %1 for the
/// prompt's text where it names one.
struct Kind {
    PromptWidget::WIDGETNAME name;
    const char *title;
    const char *question;
    const char *questionWithoutText;
    const char *confirm;
    const char *cancel; ///< null: a piece of information with one button
    Chooser chooser;
    Signal confirmed;
    TargetSignal confirmedTarget;
    Signal cancelled;
};

using P = PromptWidget;
constexpr const char *kOk = QT_TRANSLATE_NOOP("PromptWidget", "确定");
constexpr const char *kNo = QT_TRANSLATE_NOOP("PromptWidget", "取消");

const Kind kinds[] = {
    {P::PROMPT_USER_COORDS_DONE, QT_TRANSLATE_NOOP("PromptWidget", "用户坐标标定"),
     QT_TRANSLATE_NOOP("PromptWidget", "用户坐标标定成功：%1"),
     QT_TRANSLATE_NOOP("PromptWidget", "用户坐标标定成功。"), kOk, nullptr, NoTarget, nullptr,
     nullptr, nullptr},
    {P::PROMPT_USER_COORDS_FAILED, QT_TRANSLATE_NOOP("PromptWidget", "用户坐标标定"),
     QT_TRANSLATE_NOOP("PromptWidget", "用户坐标标定失败，请重新标定：%1"),
     QT_TRANSLATE_NOOP("PromptWidget", "用户坐标标定失败，请重新标定。"), kOk, nullptr, NoTarget,
     nullptr, nullptr, nullptr},
    {P::PROMPT_WIZARD_RESET, QT_TRANSLATE_NOOP("PromptWidget", "返回上一页"),
     QT_TRANSLATE_NOOP("PromptWidget", "返回上一页将清除已填写的数据（%1），确定返回吗？"),
     QT_TRANSLATE_NOOP("PromptWidget", "返回上一页将清除已填写的数据，确定返回吗？"), kOk, kNo,
     NoTarget, &P::rePageReData, nullptr, &P::rePageReData2},
    {P::PROMPT_WIZARD_EXIT, QT_TRANSLATE_NOOP("PromptWidget", "退出创建程序"),
     QT_TRANSLATE_NOOP("PromptWidget", "程序%1尚未生成，退出将清除已填写的数据，确定退出吗？"),
     QT_TRANSLATE_NOOP("PromptWidget", "程序尚未生成，退出将清除已填写的数据，确定退出吗？"), kOk,
     kNo, NoTarget, &P::exitPalFile, nullptr, &P::cancelExitPalFile},
    {P::PROMPT_COPY_PALLET, QT_TRANSLATE_NOOP("PromptWidget", "复制码垛参数"),
     QT_TRANSLATE_NOOP("PromptWidget", "将%1的码垛参数复制到："),
     QT_TRANSLATE_NOOP("PromptWidget", "将当前工艺号的码垛参数复制到："), kOk, kNo, OneTarget,
     nullptr, &P::copyPalletParameter, &P::cancelCopyPalletParameter},
    {P::PROMPT_CLEAN_PALLET, QT_TRANSLATE_NOOP("PromptWidget", "清空码垛参数"),
     QT_TRANSLATE_NOOP("PromptWidget", "确定清空%1吗？"),
     QT_TRANSLATE_NOOP("PromptWidget", "确定清空当前工艺号的参数吗？"), kOk, kNo, NoTarget,
     &P::cleanPalletParameter, nullptr, &P::cancelCleanPalletParameter},
    {P::PROMPT_COPY_PICTURE, QT_TRANSLATE_NOOP("PromptWidget", "复制图形"),
     QT_TRANSLATE_NOOP("PromptWidget", "将工艺号%1的当前图形复制到："),
     QT_TRANSLATE_NOOP("PromptWidget", "将当前图形复制到："), kOk, kNo, TargetAndPicture, nullptr,
     nullptr, &P::cancelCopyPalletPicture},
    {P::PROMPT_EASY_MODE, QT_TRANSLATE_NOOP("PromptWidget", "切换码垛模式"),
     QT_TRANSLATE_NOOP("PromptWidget", "确定将%1切换为简易码垛模式吗？"),
     QT_TRANSLATE_NOOP("PromptWidget", "确定切换为简易码垛模式吗？"), kOk, kNo, NoTarget,
     &P::easyMode, nullptr, &P::CancelEasyMode},
    {P::PROMPT_COMPLETE_MODE, QT_TRANSLATE_NOOP("PromptWidget", "切换码垛模式"),
     QT_TRANSLATE_NOOP("PromptWidget", "确定将%1切换为完整码垛模式吗？"),
     QT_TRANSLATE_NOOP("PromptWidget", "确定切换为完整码垛模式吗？"), kOk, kNo, NoTarget,
     &P::completeMode, nullptr, &P::CancelCompleteMode},
    {P::PROMPT_CLEAN_TRACK, QT_TRANSLATE_NOOP("PromptWidget", "清空传送带参数"),
     QT_TRANSLATE_NOOP("PromptWidget", "确定清空%1吗？"),
     QT_TRANSLATE_NOOP("PromptWidget", "确定清空当前传送带的参数吗？"), kOk, kNo, NoTarget,
     &P::cleanTrackParameter, nullptr, &P::cancelCleanTrackParameter},
    {P::PROMPT_COPY_TRACK, QT_TRANSLATE_NOOP("PromptWidget", "复制传送带参数"),
     QT_TRANSLATE_NOOP("PromptWidget", "将%1的传送带参数复制到："),
     QT_TRANSLATE_NOOP("PromptWidget", "将当前工艺号的传送带参数复制到："), kOk, kNo, OneTarget,
     nullptr, &P::copyTrackParameter, &P::cancelCopyTrackParameter},
    {P::PROMPT_DELETE_PROJECT, QT_TRANSLATE_NOOP("PromptWidget", "删除程序"),
     QT_TRANSLATE_NOOP("PromptWidget", "确定删除程序%1吗？删除后不能恢复。"),
     QT_TRANSLATE_NOOP("PromptWidget", "确定删除所选程序吗？删除后不能恢复。"), kOk, kNo, NoTarget,
     &P::deleteXmlJob, nullptr, &P::cancelDeleteXmlJob},
    {P::PROMPT_RESTORE_STORE, QT_TRANSLATE_NOOP("PromptWidget", "控制器参数已损坏"),
     QT_TRANSLATE_NOOP("PromptWidget",
                       "控制器的参数不能读取。取回%1的备份吗？"
                       "不能读取的参数将是当时的值；损坏的文件会另外保留。"),
     QT_TRANSLATE_NOOP("PromptWidget",
                       "控制器的参数不能读取。取回最近的备份吗？损坏的文件会另外保留。"),
     QT_TRANSLATE_NOOP("PromptWidget", "取回备份"), kNo, NoTarget, nullptr, nullptr, nullptr},
    {P::PROMPT_EMPTY_STORE, QT_TRANSLATE_NOOP("PromptWidget", "控制器参数已损坏"),
     QT_TRANSLATE_NOOP("PromptWidget",
                       "控制器的参数不能读取，也没有备份。将不能读取的参数清空吗？"
                       "损坏的文件会另外保留。"),
     QT_TRANSLATE_NOOP("PromptWidget",
                       "控制器的参数不能读取，也没有备份。将不能读取的参数清空吗？"
                       "损坏的文件会另外保留。"),
     QT_TRANSLATE_NOOP("PromptWidget", "清空"), kNo, NoTarget, nullptr, nullptr, nullptr},
};

const Kind *kindOf(PromptWidget::WIDGETNAME name)
{
    for (const Kind &kind : kinds) {
        if (kind.name == name)
            return &kind;
    }
    return nullptr;
}

QString say(const char *text)
{
    return QCoreApplication::translate("PromptWidget", text);
}

QString questionOf(const Kind &kind, const QString &text)
{
    return text.isEmpty() ? say(kind.questionWithoutText) : say(kind.question).arg(text);
}

/// A long name without blanks may break within, or its end would not be seen.
QString breakable(const QString &text)
{
    constexpr int kLongest = 24; // characters without a break
    const QChar chance(0x200b);
    QString result;
    int run = 0;
    for (const QChar character : text) {
        if (run >= kLongest && !character.isLowSurrogate() && !character.isMark()) {
            result += chance;
            run = 0;
        }
        result += character;
        run = character.isSpace() ? 0 : run + 1;
    }
    return result;
}

} // namespace

PromptWidget::PromptWidget(QWidget *parent)
    : QWidget(parent), m_title(new QLabel(this)), m_question(new QLabel(this)),
      m_targetLabel(new QLabel(this)), m_pictureLabel(new QLabel(this)),
      m_target(new TargetChooser(QStringLiteral("promptTarget"), this)),
      m_picture(new TargetChooser(QStringLiteral("promptTargetPicture"), this)),
      m_confirm(new QPushButton(this)), m_cancel(new QPushButton(this))
{
    setObjectName(QStringLiteral("promptWidget"));
    setFocusPolicy(Qt::StrongFocus);
    setFont(SetFontSize::setSize(14));
    m_title->setObjectName(QStringLiteral("promptTitle"));
    m_title->setFont(SetFontSize::setSize(16));
    m_question->setObjectName(QStringLiteral("promptQuestion"));
    m_question->setWordWrap(true);
    m_question->setFixedWidth(500);
    m_confirm->setObjectName(QStringLiteral("promptConfirm"));
    m_cancel->setObjectName(QStringLiteral("promptCancel"));
    for (QPushButton *button : {m_confirm, m_cancel})
        button->setMinimumSize(140, 56);

    auto *buttons = new QHBoxLayout;
    buttons->addStretch();
    buttons->addWidget(m_confirm);
    buttons->addSpacing(24);
    buttons->addWidget(m_cancel);
    buttons->addStretch();

    auto *layout = new QGridLayout(this);
    layout->setSizeConstraint(QLayout::SetFixedSize);
    layout->setContentsMargins(24, 18, 24, 20);
    layout->setVerticalSpacing(12);
    layout->addWidget(m_title, 0, 0, 1, 2);
    layout->addWidget(m_question, 1, 0, 1, 2);
    layout->addWidget(m_targetLabel, 2, 0);
    layout->addWidget(m_target, 2, 1, Qt::AlignLeft);
    layout->addWidget(m_pictureLabel, 3, 0);
    layout->addWidget(m_picture, 3, 1, Qt::AlignLeft);
    layout->addLayout(buttons, 4, 0, 1, 2);

    connect(m_confirm, &QPushButton::clicked, this, [this] { answer(true); });
    connect(m_cancel, &QPushButton::clicked, this, [this] { answer(false); });
    hide();
}

PromptWidget *PromptWidget::getInstance()
{
    static QPointer<PromptWidget> instance;
    if (!instance)
        instance = new PromptWidget;
    return instance;
}

void PromptWidget::repaint_widget(PromptWidget::WIDGETNAME name, const QString &text)
{
    m_prepared = name;
    m_text = text;
}

void PromptWidget::set_widget_state(PromptWidget::WIDGETNAME name)
{
    if (!kindOf(name))
        return;
    ended();
    m_shownText = name == m_prepared ? m_text : QString();
    m_shown = name;
    m_answered = false;
    ++m_showings;
    EventLog::getInstance()->record(QStringLiteral("prompt"),
                                    {static_cast<int>(name), m_shownText});
    build(name);
    layOver(ScreenHost::widget());
    InputGate::getInstance()->restrictTo(this);
    show();
    raise();
    place();
    setFocus(Qt::OtherFocusReason);
}

void PromptWidget::ask(PromptWidget::WIDGETNAME name, const QString &text,
                       std::function<void(bool)> answered)
{
    repaint_widget(name, text);
    set_widget_state(name);
    if (m_shown == name)
        m_asker = std::move(answered);
}

void PromptWidget::build(WIDGETNAME name)
{
    const Kind &kind = *kindOf(name);
    m_title->setText(say(kind.title));
    m_question->setText(questionOf(kind, breakable(m_shownText)));
    m_targetLabel->setText(tr("工艺号"));
    m_pictureLabel->setText(tr("图形号"));
    m_confirm->setText(say(kind.confirm));
    if (kind.cancel)
        m_cancel->setText(say(kind.cancel));
    m_targetLabel->setVisible(kind.chooser != NoTarget);
    m_target->setVisible(kind.chooser != NoTarget);
    m_pictureLabel->setVisible(kind.chooser == TargetAndPicture);
    m_picture->setVisible(kind.chooser == TargetAndPicture);
    m_cancel->setVisible(kind.cancel);
    if (!m_answered) {
        m_confirm->setEnabled(true);
        m_cancel->setEnabled(true);
    }
    if (kind.chooser == TargetAndPicture && !m_answered) {
        m_target->setValue(m_shownText.toInt());
        m_picture->setValue(1);
    } else if (!m_answered) {
        m_target->setValue(1);
    }
}

void PromptWidget::layOver(QWidget *host)
{
    if (host == this)
        host = nullptr;
    if (m_host != host)
        leaveHost();
    if (!host || m_host == host)
        return;
    m_host = host;
    setParent(host);
    host->installEventFilter(this);
    connect(host, &QObject::destroyed, this, [this] { leaveHost(); });
}

void PromptWidget::leaveHost()
{
    if (QWidget *host = parentWidget()) {
        host->removeEventFilter(this);
        disconnect(host, &QObject::destroyed, this, nullptr);
        setParent(nullptr);
    }
    m_host = nullptr;
}

void PromptWidget::place()
{
    layout()->activate();
    if (const QWidget *host = parentWidget())
        move((host->width() - width()) / 2, qMax(0, (host->height() - height()) / 2));
}

void PromptWidget::withdraw()
{
    if (const Kind *kind = kindOf(m_shown))
        answer(!kind->cancel); // a piece of information has one answer only, which does nothing
}

void PromptWidget::stayOnTop()
{
    if (m_shown == PROMPT_NONE)
        return;
    InputGate::getInstance()->restrictTo(this);
    raise();
}

PromptWidget::WIDGETNAME PromptWidget::currentWidget() const
{
    return m_shown;
}

QString PromptWidget::text() const
{
    return m_text;
}

QString PromptWidget::question() const
{
    return m_shown == PROMPT_NONE ? QString() : questionOf(*kindOf(m_shown), m_shownText);
}

void PromptWidget::answer(bool confirmed)
{
    if (m_shown == PROMPT_NONE || m_answered)
        return;
    m_answered = true;
    m_confirm->setEnabled(false);
    m_cancel->setEnabled(false);
    const quint64 showing = m_showings;
    const QPointer<PromptWidget> self(this);
    if (const auto asker = std::exchange(m_asker, nullptr))
        asker(confirmed);
    else
        emitAnswer(m_shown, confirmed, m_target->value(), m_picture->value());
    if (self && m_showings == showing)
        close();
}

void PromptWidget::emitAnswer(WIDGETNAME name, bool confirmed, int target, int picture)
{
    const Kind &kind = *kindOf(name);
    if (!confirmed) {
        if (kind.cancelled)
            emit(this->*kind.cancelled)();
    } else if (kind.chooser == TargetAndPicture) {
        emit copyPalletPicture(target, picture);
    } else if (kind.chooser == OneTarget) {
        emit(this->*kind.confirmedTarget)(target);
    } else if (kind.confirmed) {
        emit(this->*kind.confirmed)();
    }
}

void PromptWidget::ended()
{
    if (m_shown == PROMPT_NONE)
        return;
    const int number = m_shown;
    m_shown = PROMPT_NONE;
    m_asker = nullptr;
    InputGate::getInstance()->release(this);
    EventLog::getInstance()->record(QStringLiteral("promptClosed"), {number});
}

void PromptWidget::closeEvent(QCloseEvent *event)
{
    ended();
    QWidget::closeEvent(event);
}

void PromptWidget::hideEvent(QHideEvent *event)
{
    QWidget::hideEvent(event);
    // A host that is hidden for a while hides its prompt with it; that closes nothing.
    if (isHidden() && !event->spontaneous())
        ended();
}

void PromptWidget::changeEvent(QEvent *event)
{
    if (event->type() == QEvent::LanguageChange && m_shown != PROMPT_NONE) {
        build(m_shown);
        place();
    }
    QWidget::changeEvent(event);
}

bool PromptWidget::eventFilter(QObject *watched, QEvent *event)
{
    if (watched == parent() && event->type() == QEvent::Resize)
        place();
    return QWidget::eventFilter(watched, event);
}

void PromptWidget::keyPressEvent(QKeyEvent *event)
{
    // Enter answers only by a focused button.
    if (event->key() == Qt::Key_Escape) {
        withdraw();
        return;
    }
    event->accept();
}

bool PromptWidget::focusNextPrevChild(bool next)
{
    // Tab goes round within the prompt.
    QList<QWidget *> stops;
    for (QWidget *stop : findChildren<QWidget *>()) {
        if (stop->isVisibleTo(this) && stop->isEnabled() && (stop->focusPolicy() & Qt::TabFocus))
            stops.append(stop);
    }
    if (stops.isEmpty())
        return true;
    const int at = static_cast<int>(stops.indexOf(focusWidget()));
    const int count = static_cast<int>(stops.size());
    const int to = at < 0 ? (next ? 0 : count - 1) : (at + (next ? 1 : count - 1)) % count;
    stops.at(to)->setFocus(next ? Qt::TabFocusReason : Qt::BacktabFocusReason);
    return true;
}

void PromptWidget::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    painter.fillRect(rect(), palette().color(QPalette::Window).lighter(106));
    painter.fillRect(0, 0, width(), 4, palette().color(QPalette::Highlight));
    painter.setPen(QPen(palette().color(QPalette::Shadow), 1));
    painter.drawRect(rect().adjusted(0, 0, -1, -1));
}
