#include "language.h"

#include "veltrixdatabase.h"

#include <QCoreApplication>
#include <QEvent>
#include <QTranslator>

namespace {

const QString kKey = QStringLiteral("language");
const QString kChinese = QStringLiteral("zh");
const QString kEnglish = QStringLiteral("en");

} // namespace

/// The English texts are linked in statically; naming them here keeps them in every program.
static void loadTranslations()
{
    Q_INIT_RESOURCE(translations);
}

Language::Language(QObject *parent)
    : QObject(parent), m_shipped(new QTranslator(this)), m_english(m_shipped)
{
    loadTranslations();
}

Language *Language::getInstance()
{
    static Language *const instance = new Language;
    return instance;
}

bool Language::setCurrent(const QString &language)
{
    if (!apply(language))
        return false;
    VeltrixDatabase::getInstance()->setValue(kKey, language);
    return true;
}

void Language::loadStored()
{
    apply(VeltrixDatabase::getInstance()->value(kKey, kChinese).toString());
}

void Language::setEnglish(QTranslator *translator)
{
    m_english = translator ? translator : m_shipped;
}

bool Language::apply(const QString &language)
{
    if (language == m_current)
        return true;
    if (language != kChinese && language != kEnglish)
        return false;
    if (language == kEnglish && m_english == m_shipped
        && !m_shipped->load(QStringLiteral(":/i18n/pendant_en.qm")))
        return false;

    emit aboutToChange();
    m_current = language;
    if (language == kEnglish)
        QCoreApplication::installTranslator(m_english);
    else
        QCoreApplication::removeTranslator(m_english);
    // The widgets are told by posted events; a listener of changed() may rely on the new texts.
    QCoreApplication::sendPostedEvents(nullptr, QEvent::LanguageChange);
    emit changed(language);
    return true;
}
