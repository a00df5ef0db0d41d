#include "language.h"

#include "veltrixdatabase.h"

#include <QCoreApplication>
#include <QDir>
#include <QEvent>
#include <QTranslator>
#include <utility>

namespace {

const QString kKey = QStringLiteral("language");
const QString kChinese = QStringLiteral("zh");
const QString kEnglish = QStringLiteral("en");

} // namespace

/// The English texts are linked in statically; naming them here keeps them in every program.
static void loadTranslations()
{
    Q_INIT_RESOURCE(pendant_english);
}

Language::Language(QObject *parent) : QObject(parent)
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
    m_other = translator;
}

/// Those that have the English texts; none when a file cannot be read.
QVector<QTranslator *> Language::english()
{
    if (m_other)
        return {m_other};
    if (m_shipped.isEmpty()) {
        const QDir folder(QStringLiteral(":/i18n"));
        const QStringList files = folder.entryList({QStringLiteral("*_en.qm")});
        for (const QString &file : files) {
            auto *translator = new QTranslator(this);
            m_shipped.append(translator);
            if (!translator->load(folder.filePath(file))) {
                qDeleteAll(std::exchange(m_shipped, {}));
                break;
            }
        }
    }
    return m_shipped;
}

bool Language::apply(const QString &language)
{
    if (language == m_current)
        return true;
    if (language != kChinese && language != kEnglish)
        return false;
    const QVector<QTranslator *> translators = english();
    if (translators.isEmpty())
        return false;

    emit aboutToChange();
    m_current = language;
    for (QTranslator *translator : translators) {
        if (language == kEnglish)
            QCoreApplication::installTranslator(translator);
        else
            QCoreApplication::removeTranslator(translator);
    }
    // The widgets are told by posted events; a listener of changed() may rely on the new texts.
    QCoreApplication::sendPostedEvents(nullptr, QEvent::LanguageChange);
    emit changed(language);
    return true;
}
