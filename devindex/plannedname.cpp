#include "devindex/plannedname.h"

#include "devindex/namekey.h"
#include "devindex/songname.h"

namespace
{

QString besideOthers(const TransferPlan &plan, const QString &name)
{
    return plan.folder + QLatin1Char('/') + name;
}

} // namespace

QString PlannedName::whyNot(const TransferPlan &plan, int number, const QString &name)
{
    const TransferPlan::Item &item = plan.items.at(number);
    const QString wanted = besideOthers(plan, name);
    if (wanted == item.keepBothTarget)
        return {};
    const QString own = besideOthers(plan, item.path.section(QLatin1Char('/'), -1));
    QString problem = SongName::whyNot(plan.root, own.mid(plan.root.size()), name);
    if (!problem.isEmpty())
        return problem;
    const QString key = nameKey(wanted);
    for (int i = 0; i < plan.items.size(); ++i) {
        const TransferPlan::Item &other = plan.items.at(i);
        const bool isTaken =
            nameKey(other.target) == key ||
            nameKey(other.subFolderTarget.section(QLatin1Char('/'), 0, -2)) == key ||
            (i != number && nameKey(other.keepBothTarget) == key);
        if (isTaken)
            return tr("un'altra song del piano ha questo nome");
    }
    return {};
}

bool PlannedName::set(TransferPlan &plan, int number, const QString &name)
{
    if (!whyNot(plan, number, name).isEmpty())
        return false;
    plan.items[number].keepBothTarget = besideOthers(plan, name);
    return true;
}
