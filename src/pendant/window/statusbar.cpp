#include "statusbar.h"

#include "auditlog.h"
#include "language.h"
#include "snackbarmessage.h"
#include "useraccounts.h"
#include "warningmark.h"

#include <QDateTime>
#include <QEvent>
#include <QHBoxLayout>
#include <QLabel>
#include <QPalette>
#include <QPushButton>
#include <QTimer>

StatusBar::StatusBar(QWidget *parent)
    : QWidget(parent), m_user(new QLabel(this)), m_audit(new QLabel(this)),
      m_notKept(new QLabel(this)), m_time(new QLabel(this)), m_language(new QPushButton(this)),
      m_clock(new QTimer(this))
{
    setObjectName(QStringLiteral("statusBar"));
    setFixedHeight(kHeight);
    m_user->setObjectName(QStringLiteral("statusUser"));
    m_user->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
    m_audit->setObjectName(QStringLiteral("auditMark"));
    setUpWarningMark(m_audit);
    m_notKept->setObjectName(QStringLiteral("statusNotKept"));
    m_notKept->setAutoFillBackground(true);
    m_notKept->setMargin(6);
    QPalette marked = m_notKept->palette();
    marked.setColor(QPalette::Window, QColor(0xff, 0xe0, 0x82));
    m_notKept->setPalette(marked);
    m_time->setObjectName(QStringLiteral("statusTime"));
    m_language->setObjectName(QStringLiteral("languageButton"));
    m_language->setFocusPolicy(Qt::NoFocus);
    m_language->setFixedSize(88, 42);

    auto *row = new QHBoxLayout(this);
    row->setContentsMargins(10, 3, 10, 3);
    row->setSpacing(12);
    row->addWidget(m_user, 1);
    row->addWidget(m_audit);
    row->addWidget(m_notKept);
    row->addWidget(m_language);
    row->addWidget(m_time);

    connect(m_language, &QPushButton::clicked, this, &StatusBar::switchLanguage);
    connect(UserAccounts::getInstance(), &UserAccounts::userChanged, this, &StatusBar::retranslate);
    connect(UserAccounts::getInstance(), &UserAccounts::accountsChanged, this,
            &StatusBar::retranslate);
    connect(AuditLog::getInstance(), &AuditLog::missingChanged, this, &StatusBar::refreshAudit);
    connect(m_clock, &QTimer::timeout, this, &StatusBar::refreshTime);
    m_clock->start(1000);
    retranslate();
}

void StatusBar::setKeeps(Keeps keeps)
{
    m_keeps = keeps;
    retranslate();
}

void StatusBar::retranslate()
{
    m_notKept->setVisible(m_keeps != Keeps::Everything);
    m_notKept->setText(m_keeps == Keeps::NoLog ? tr("⚠ 日志不保存") : tr("⚠ 数据不保存"));
    m_user->setText(tr("用户：%1").arg(UserAccounts::getInstance()->currentUserText()));
    // The button names the language that it switches to, in that language.
    const bool chinese = Language::getInstance()->current() == QLatin1String("zh");
    m_language->setText(chinese ? QStringLiteral("中 → EN") : QStringLiteral("EN → 中"));
    m_language->setAccessibleName(tr("切换语言"));
    refreshTime();
    refreshAudit();
}

void StatusBar::refreshAudit()
{
    const int missing = AuditLog::getInstance()->missing();
    m_audit->setText(tr("审计日志无法写入\n缺少 %1 条记录").arg(missing));
    m_audit->setVisible(missing > 0);
}

void StatusBar::refreshTime()
{
    m_time->setText(QDateTime::currentDateTime().toString(QStringLiteral("yyyy-MM-dd HH:mm:ss")));
}

void StatusBar::switchLanguage()
{
    Language *language = Language::getInstance();
    const bool chinese = language->current() == QLatin1String("zh");
    if (!language->setCurrent(chinese ? QStringLiteral("en") : QStringLiteral("zh")))
        SnackbarMessage::showMessage(tr("语言文件无法读取"), 3000, 3, true);
}

void StatusBar::changeEvent(QEvent *event)
{
    if (event->type() == QEvent::LanguageChange)
        retranslate();
    QWidget::changeEvent(event);
}
