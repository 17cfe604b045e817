#include "cli/sitescommand.h"

#include "app/sourcechoices.h"
#include "base/interrupt.h"
#include "cli/chosendefinitions.h"
#include "cli/sitesreport.h"

#include <QEventLoop>

#include <memory>
#include <vector>

using namespace Qt::StringLiterals;

namespace {

/// A name that no class has may be meant for a later release.
bool isAllRight(SiteFinding::Answer answer)
{
    using Answer = SiteFinding::Answer;
    return answer == Answer::Found || answer == Answer::NoSite || answer == Answer::NoSuchSource;
}

SiteDefinitions definitionsInUse(Engine &engine)
{
    return definitionsAsChosen(engine.definitions.liveResources(), engine.prefs.settings());
}

void listSites(Engine &engine, Report &report)
{
    const SiteDefinitions definitions = definitionsInUse(engine);
    const QStringList classes = definitions.sourcelist();
    for (const QString &className : classes) {
        const ListedSource source = listedSource(engine.catalog, definitions, className);
        if (report.format() == ReportFormat::JsonLines)
            report.object(listedAsJson(source));
        else
            report.text(listedAsText(source));
    }
}

void tellFinding(const SiteFinding &finding, Report &report)
{
    if (report.format() == ReportFormat::JsonLines)
        report.object(findingAsJson(finding));
    else
        report.text(findingAsText(finding));
    report.flush();
    if (!isAllRight(finding.answer))
        report.setFailed();
}

/// The checks of all sources, which run at once and are told of in their order.
class SiteChecks {
public:
    explicit SiteChecks(Engine &engine)
    {
        const SiteDefinitions definitions = definitionsInUse(engine);
        const QStringList classes = definitions.sourcelist();
        for (const QString &className : classes)
            mChecks.push_back(
                std::make_unique<SiteCheck>(engine.catalog, definitions, engine.queue, className));
    }

    /// Runs an event loop until all are done or the user interrupts.
    void run(Report &report)
    {
        const Interrupt interrupt;
        QEventLoop loop;
        QObject::connect(&interrupt, &Interrupt::interrupted, &loop, [&] {
            report.setFailed();
            loop.quit();
        });
        for (const auto &check : mChecks) {
            QObject::connect(check.get(), &SiteCheck::finished, &loop, [&, one = check.get()] {
                mFinished.insert(one);
                tellFinished(report);
                if (mNextToTell == mChecks.size())
                    loop.quit();
            });
            check->begin();
        }
        if (!mChecks.empty())
            loop.exec();
        tellWhatElseFinished(report);
    }

private:
    void tellFinished(Report &report)
    {
        while (mNextToTell < mChecks.size() && mFinished.contains(mChecks[mNextToTell].get()))
            tellFinding(mChecks[mNextToTell++]->finding(), report);
    }

    /// After an interrupt: what stands behind a check that was still under way.
    void tellWhatElseFinished(Report &report)
    {
        for (; mNextToTell < mChecks.size(); ++mNextToTell)
            if (const SiteCheck *check = mChecks[mNextToTell].get(); mFinished.contains(check))
                tellFinding(check->finding(), report);
    }

    std::vector<std::unique_ptr<SiteCheck>> mChecks;
    QSet<const SiteCheck *> mFinished;
    size_t mNextToTell = 0;
};

/// Newer definitions, fetched.
struct UpdateOutcome {
    QString problem; ///< empty: they are in use from now on
    std::optional<ReleaseAnnouncement> release;
};

UpdateOutcome updated(DefinitionsUpdate &update)
{
    UpdateOutcome outcome;
    QEventLoop loop;
    QObject::connect(&update, &DefinitionsUpdate::releaseAnnounced, &loop,
                     [&](const ReleaseAnnouncement &release) { outcome.release = release; });
    QObject::connect(&update, &DefinitionsUpdate::finished, &loop, [&](const QString &problem) {
        outcome.problem = problem;
        loop.quit();
    });
    if (update.checkNow())
        loop.exec();
    else
        outcome.problem = u"this program was built without an address of newer definitions"_s;
    return outcome;
}

void updateSites(Engine &engine, Report &report)
{
    const auto [problem, release] = updated(engine.update);
    const bool isUpdated = problem.isEmpty();
    if (report.format() == ReportFormat::JsonLines)
        report.object({{u"updated"_s, isUpdated},
                       {u"problem"_s, isUpdated ? QJsonValue() : problem},
                       {u"newRelease"_s, release ? release->downloadLocation : QJsonValue()}});
    else if (isUpdated)
        report.text(u"newer definitions are in use"_s);
    if (release && report.format() == ReportFormat::Text)
        report.text(release->message + u'\n' + release->downloadLocation);
    if (!isUpdated)
        report.error(u"sites update"_s, problem);
}

} // namespace

int runSites(const Arguments &arguments, Report &report)
{
    // A page that was kept says nothing about the site as it is now.
    Engine engine(Engine::Pages::InMemory);
    if (!useChosenDefinitions(arguments, engine, report))
        return ExitStatus::wrongArguments;
    engine.start(Engine::Definitions::Fixed);
    switch (arguments.sites) {
    case SitesAction::List:
        listSites(engine, report);
        break;
    case SitesAction::Check:
        SiteChecks(engine).run(report);
        break;
    case SitesAction::Update:
        updateSites(engine, report);
        break;
    }
    return report.finish();
}
