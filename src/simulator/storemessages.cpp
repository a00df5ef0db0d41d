// What the controller's parameter store has to do with its messages: one message is one
// transaction, and what is wrong with the store is told to the pendants.

#include "simulator/simulatedcontroller.h"
#include "simulator/storewords.h"

namespace {

/// A page that polls is refused several times a second; its pendant is told once a second.
constexpr qint64 kBetweenWords = 1000; // milliseconds

} // namespace

const char *SimulatedController::carryOut(Pendant &pendant, Handler handle, Request &request)
{
    ParameterStore::Transaction transaction(m_store);
    const char *wrong = handle(request);
    if (transaction.hasMetDamage())
        wrong = "what is stored cannot be read";
    else if (!wrong && !transaction.commit())
        wrong = "the store does not take it";
    m_jobs.settle(!wrong);
    watchStore();
    const bool isUnread = transaction.hasMetDamage() && m_store.isDamaged();
    if (isUnread || transaction.hasMetDamage() || transaction.hasFailed())
        tellOfStore(pendant, isUnread ? storeword::kDamaged : storeword::kFailed);
    return wrong;
}

/// Puts what is newly wrong with the store into the log.
void SimulatedController::watchStore()
{
    if (m_store.fault() == m_storeFault)
        return;
    m_storeFault = m_store.fault();
    if (!m_storeFault.isEmpty())
        emit storeTold(m_storeFault);
}

void SimulatedController::greetOfStore(Pendant &pendant)
{
    if (m_store.isDamaged())
        tellOfStore(pendant, storeword::kDamaged);
    else if (m_store.state() != ParameterStore::State::Good)
        tellOfStore(pendant, storeword::kFailed);
}

void SimulatedController::tellOfStore(Pendant &pendant, const char *word)
{
    pendant.session.isTold = true;
    QElapsedTimer &since = pendant.session.sinceStoreWord;
    if (since.isValid() && !since.hasExpired(kBetweenWords))
        return;
    since.start();
    sendStatus(pendant, 0, word);
}

void SimulatedController::addCopy(Json::Value &status) const
{
    const QString copy = m_store.lastGoodCopy();
    if (!copy.isEmpty())
        status["copy"] = copy.toStdString();
}

/// What an operator has decided of a damaged store: to put its last good copy back, or, when there
/// is none, to begin an empty one. The arms stand still for it: their frames change.
const char *SimulatedController::restoreStore(bool fromCopy)
{
    if (!m_store.isDamaged())
        return "the store is not damaged";
    if (!fromCopy && !m_store.lastGoodCopy().isEmpty())
        return "the store has a copy";
    m_cell.stopAll();
    m_jobs.clear();
    QString sentence;
    const bool good = m_store.mend(&sentence);
    emit storeTold(sentence);
    watchStore();
    const char *word = good   ? storeword::kRestored
        : m_store.isDamaged() ? storeword::kDamaged
                              : storeword::kFailed;
    for (Pendant &pendant : m_pendants)
        sendStatus(pendant, 0, word);
    return good ? nullptr : "the copy cannot be put back";
}
