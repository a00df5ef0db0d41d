#include "entrypanel.h"

#include "inputgate.h"
#include "setfontsize.h"

#include <QEvent>
#include <QFrame>
#include <QGridLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPainter>
#include <QPushButton>
#include <QValidator>

namespace {

constexpr int kKeyHeight = 64;
constexpr int kGap = 4;

QPointer<EntryPanel> openPanel;

/// The preview never has the focus, so it draws its cursor by itself.
class PreviewEdit : public QLineEdit {
public:
    explicit PreviewEdit(QWidget *parent) : QLineEdit(parent)
    {
        setFocusPolicy(Qt::NoFocus);
        setContextMenuPolicy(Qt::NoContextMenu);
    }

protected:
    void paintEvent(QPaintEvent *event) override
    {
        QLineEdit::paintEvent(event);
        if (hasSelectedText())
            return;
        QRect cursor = cursorRect();
        cursor = QRect(cursor.center().x(), cursor.top(), 2, cursor.height());
        QPainter(this).fillRect(cursor, palette().color(QPalette::Text));
    }
};

QString nameOf(const QLineEdit *field)
{
    for (const QString &name : {field->property("fieldName").toString(), field->accessibleName(),
                                field->placeholderText()}) {
        if (!name.isEmpty())
            return name;
    }
    return EntryPanel::tr("输入");
}

QString titleOf(const QLineEdit *field)
{
    const QString unit = field->property("fieldUnit").toString();
    return unit.isEmpty() ? nameOf(field) : EntryPanel::tr("%1（%2）").arg(nameOf(field), unit);
}

QValidator::State stateOf(const QLineEdit *field, QString text)
{
    if (!field->validator())
        return QValidator::Acceptable;
    int position = static_cast<int>(text.size());
    return field->validator()->validate(text, position);
}

/// Where the panel may lie: over the page that the field stands on, so that what lies beside the
/// page stays in reach; over the whole window when the page is too small for it.
QRect areaOf(const QWidget *field, const QWidget *window, const QSize &needed)
{
    const QWidget *page = field;
    while (page && page->parentWidget() != window)
        page = page->parentWidget();
    const bool fits = page && page->width() >= needed.width() && page->height() >= needed.height();
    return fits ? page->geometry() : window->rect();
}

} // namespace

EntryPanel::EntryPanel(QLineEdit *field, int keyWidth)
    : QWidget(field->window()), m_field(field), m_keyWidth(keyWidth)
{
    if (openPanel)
        openPanel->cancel();
    openPanel = this;
    setFocusPolicy(Qt::NoFocus);

    auto *panel = new QFrame(this);
    panel->setObjectName(QStringLiteral("entryPanelFrame"));
    panel->setFrameShape(QFrame::StyledPanel);
    panel->setAutoFillBackground(true);
    m_panel = panel;

    auto *title = new QLabel(titleOf(field), panel);
    title->setObjectName(QStringLiteral("entryTitle"));
    title->setFont(SetFontSize::setSize(15));
    m_oldValue = new QLabel(panel);
    m_oldValue->setObjectName(QStringLiteral("entryOldValue"));
    m_oldValue->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    m_hint = new QLabel(panel);
    m_hint->setObjectName(QStringLiteral("entryHint"));
    QPalette warning = m_hint->palette();
    warning.setColor(QPalette::WindowText, QColor(0xa0, 0x28, 0x1e));
    m_hint->setPalette(warning);
    m_hint->setFixedHeight(24);

    m_preview = new PreviewEdit(panel);
    m_preview->setObjectName(QStringLiteral("entryPreview"));
    m_preview->setFont(SetFontSize::setSize(20));
    m_preview->setFixedHeight(48);
    m_preview->setEchoMode(field->echoMode());
    m_preview->setMaxLength(field->maxLength());
    m_preview->setText(field->text());
    m_preview->selectAll();

    m_keys = new QGridLayout;
    m_keys->setSpacing(kGap);
    auto *layout = new QGridLayout(panel);
    layout->setContentsMargins(8, 6, 8, 8);
    layout->setVerticalSpacing(4);
    layout->addWidget(title, 0, 0);
    layout->addWidget(m_oldValue, 0, 1);
    layout->addWidget(m_preview, 1, 0, 1, 2);
    layout->addWidget(m_hint, 2, 0, 1, 2);
    layout->addLayout(m_keys, 3, 0, 1, 2);
    layout->setColumnStretch(0, 1);

    showOldValue();
    connect(field, &QLineEdit::textChanged, this, &EntryPanel::showOldValue);
    connect(field, &QObject::destroyed, this, &EntryPanel::cancel);
    connect(InputGate::getInstance(), &InputGate::restrictionChanged, this, [this] {
        if (!this->field() || !InputGate::getInstance()->allows(this->field()))
            cancel();
    });
    field->installEventFilter(this);
    field->window()->installEventFilter(this);
}

EntryPanel::~EntryPanel() = default;

EntryPanel *EntryPanel::open()
{
    return openPanel;
}

QString EntryPanel::text() const
{
    return m_preview->text();
}

QString EntryPanel::hint() const
{
    return m_hint->text();
}

void EntryPanel::present()
{
    InputGate::getInstance()->addCompanion(this);
    const QSize needed = m_panel->sizeHint();
    const QSize room = parentWidget()->size();
    if (needed.width() > room.width() || needed.height() > room.height())
        setWindowFlags(Qt::Tool | Qt::FramelessWindowHint | Qt::WindowDoesNotAcceptFocus);
    place();
    show();
    raise();
}

void EntryPanel::place()
{
    const QSize size = m_panel->sizeHint();
    const QWidget *window = parentWidget();
    if (isWindow()) {
        m_panel->setGeometry(QRect(QPoint(0, 0), size));
        const QPoint centre = window->mapToGlobal(window->rect().center());
        setGeometry(QRect(centre - QPoint(size.width() / 2, size.height() / 2), size));
        return;
    }
    const QRect area = areaOf(field(), window, size);
    setGeometry(area);

    int y = (area.height() - size.height()) / 2;
    if (field()) {
        // Leave the field in view where the height allows it.
        const QPoint centre = field()->mapTo(window, field()->rect().center());
        y = centre.y() - area.top() < area.height() / 2 ? area.height() - size.height() : 0;
    }
    m_panel->setGeometry(qMax(0, (area.width() - size.width()) / 2), qMax(0, y), size.width(),
                         size.height());
}

QAbstractButton *EntryPanel::addKey(const QString &name, const QString &label, int row, int column,
                                    int columns)
{
    auto *key = new QPushButton(label, m_panel);
    key->setObjectName(QStringLiteral("key_") + name);
    key->setFocusPolicy(Qt::NoFocus);
    key->setFont(SetFontSize::setSize(label.size() > 1 ? 15 : 18));
    key->setFixedSize(m_keyWidth * columns + kGap * (columns - 1), kKeyHeight);
    m_keys->addWidget(key, row, column, 1, columns);
    return key;
}

void EntryPanel::showOldValue()
{
    if (!field())
        return;
    const bool hidden = field()->echoMode() != QLineEdit::Normal;
    m_oldValue->setText(hidden ? QString() : tr("原值 %1").arg(field()->text()));
}

bool EntryPanel::isFresh() const
{
    return !m_used;
}

void EntryPanel::accept()
{
    m_used = true;
    m_hint->clear();
}

void EntryPanel::refuse(const QString &why)
{
    m_hint->setText(QStringLiteral("▲ ") + why);
}

void EntryPanel::type(const QString &typed)
{
    if (!field())
        return;
    QString candidate = m_preview->text();
    if (m_preview->hasSelectedText())
        candidate.replace(m_preview->selectionStart(), m_preview->selectedText().size(), typed);
    else
        candidate.insert(m_preview->cursorPosition(), typed);
    if (candidate.size() > m_preview->maxLength()) {
        refuse(tr("最多%1个字符").arg(m_preview->maxLength()));
        return;
    }
    if (stateOf(field(), candidate) == QValidator::Invalid) {
        refuse(tr("此处不能输入“%1”").arg(typed));
        return;
    }
    accept();
    m_preview->insert(typed);
}

void EntryPanel::backspace()
{
    // The old value is edited from its end, not wiped out as a whole.
    if (isFresh())
        m_preview->end(false);
    accept();
    m_preview->backspace();
}

void EntryPanel::moveCursor(int steps)
{
    if (isFresh()) {
        if (steps < 0)
            m_preview->end(false);
        else
            m_preview->home(false);
        accept();
        return;
    }
    accept();
    m_preview->deselect();
    m_preview->cursorForward(false, steps);
}

void EntryPanel::clearText()
{
    accept();
    m_preview->clear();
}

bool EntryPanel::isAcceptable(const QString &) const
{
    return true;
}

void EntryPanel::confirm()
{
    if (m_closed || !field())
        return;
    QString entered = m_preview->text();
    if (const QValidator *validator = field()->validator()) {
        if (stateOf(field(), entered) != QValidator::Acceptable)
            validator->fixup(entered);
        if (stateOf(field(), entered) != QValidator::Acceptable) {
            refuse(tr("此值不可用，请修改"));
            return;
        }
    } else if (!isAcceptable(entered)) {
        refuse(tr("此值不可用，请修改"));
        return;
    }
    const QPointer<QLineEdit> edit = field();
    dismiss();
    if (entered != edit->text()) {
        // Typed, not set: textEdited() tells the page that the operator did it.
        edit->selectAll();
        if (entered.isEmpty())
            edit->del();
        else
            edit->insert(entered);
    }
    if (edit)
        emit edit->returnPressed();
    if (edit)
        emit edit->editingFinished();
}

void EntryPanel::cancel()
{
    dismiss();
}

void EntryPanel::dismiss()
{
    if (m_closed)
        return;
    m_closed = true;
    if (openPanel == this)
        openPanel = nullptr;
    if (field())
        field()->removeEventFilter(this);
    hide();
    deleteLater();
}

bool EntryPanel::eventFilter(QObject *watched, QEvent *event)
{
    if (m_closed)
        return false;
    if (watched == parentWidget() && event->type() == QEvent::Resize) {
        place();
        return false;
    }
    if (watched != m_field)
        return false;
    switch (event->type()) {
    case QEvent::EnabledChange:
    case QEvent::ReadOnlyChange:
        if (!field()->isEnabled() || field()->isReadOnly())
            cancel();
        return false;
    case QEvent::Hide:
        cancel();
        return false;
    case QEvent::KeyPress:
        return takeFieldKey(static_cast<QKeyEvent *>(event));
    default:
        return false;
    }
}

bool EntryPanel::takeFieldKey(QKeyEvent *event)
{
    const bool ends = event->key() == Qt::Key_Escape || event->key() == Qt::Key_Return
        || event->key() == Qt::Key_Enter;
    if ((ends || !isFresh()) && takeKey(event))
        return true;
    // Whoever has a keyboard types into the field itself.
    if (!event->text().isEmpty() || event->key() == Qt::Key_Left || event->key() == Qt::Key_Right)
        cancel();
    return false;
}

bool EntryPanel::takeKey(QKeyEvent *event)
{
    const int key = event->key();
    if (key == Qt::Key_Escape) {
        cancel();
    } else if (key == Qt::Key_Return || key == Qt::Key_Enter) {
        confirm();
    } else if (key == Qt::Key_Backspace) {
        backspace();
    } else if (key == Qt::Key_Left || key == Qt::Key_Right) {
        moveCursor(key == Qt::Key_Left ? -1 : 1);
    } else if (!event->text().isEmpty() && event->text().at(0).isPrint()
               && !(event->modifiers() & (Qt::ControlModifier | Qt::AltModifier))) {
        type(event->text());
    } else {
        return false;
    }
    event->accept();
    return true;
}

void EntryPanel::keyPressEvent(QKeyEvent *event)
{
    if (!takeKey(event))
        QWidget::keyPressEvent(event);
}

void EntryPanel::paintEvent(QPaintEvent *)
{
    QPainter(this).fillRect(rect(), QColor(0, 0, 0, 70));
}

void EntryPanel::mousePressEvent(QMouseEvent *event)
{
    // A touch beside the panel reaches nothing: an entry must not be lost by a slip.
    event->accept();
}
