#pragma once

#include <QObject>
#include <QString>
#include <QVector>

class QTranslator;

/// The language of the screen. Chinese is the language of the source texts; English comes in the
/// translation files that are linked in as ":/i18n/<library>_en.qm". A change reaches every widget
/// as a LanguageChange event.
class Language : public QObject {
    Q_OBJECT
public:
    static Language *getInstance();

    /// "zh" or "en".
    QString current() const { return m_current; }

    /// Switches and stores the choice. False, with nothing changed, for an unknown language or when
    /// its translation cannot be read.
    bool setCurrent(const QString &language);

    /// The same without storing it, for the texts before the store is open.
    bool show(const QString &language) { return apply(language); }

    /// Takes up the language of the last run.
    void loadStored();

    /// Takes the English texts from `translator` instead of the files that ship; null goes back to
    /// the files. Not owned. To be called while Chinese is shown.
    void setEnglish(QTranslator *translator);

signals:
    /// The switch is certain and about to happen; every text is still in the old language.
    void aboutToChange();
    /// All widgets have been told.
    void changed(const QString &language);

private:
    explicit Language(QObject *parent = nullptr);
    bool apply(const QString &language);
    QVector<QTranslator *> english();

    QString m_current = QStringLiteral("zh");
    QVector<QTranslator *> m_shipped; ///< one for each file; empty until English was first chosen
    QTranslator *m_other = nullptr; ///< in place of those
};
