#include "ComputerSearch.h"
#include "RemoteShutdown.h"
#include "RuntimeError.h"

#include <QCoreApplication>
#include <QTextStream>

// What the suite does in a network, for a test in one of its own:
//
//     network-actions list
//     network-actions shutdown|restart|abort NAME ADDRESS

namespace {

int list()
{
    const std::optional<QList<Computer>> computers = ComputerSearch::computers();
    if (!computers)
        return EXIT_FAILURE;
    QTextStream out(stdout);
    for (const Computer &computer : *computers)
        out << computer.name << ' ' << computer.address << '\n';
    return EXIT_SUCCESS;
}

int send(RemoteShutdown::Order order, const QStringList &arguments)
{
    RemoteShutdown::send(order, {arguments.value(2), arguments.value(3)},
                         QStringLiteral("A test's comment."));
    return EXIT_SUCCESS;
}

} // namespace

int main(int argc, char **argv)
{
    const QCoreApplication application(argc, argv);
    const QStringList arguments = QCoreApplication::arguments();
    const QString action = arguments.value(1);
    if (action == QLatin1String("list"))
        return list();
    if (action == QLatin1String("shutdown"))
        return send(RemoteShutdown::Order::ShutDown, arguments);
    if (action == QLatin1String("restart"))
        return send(RemoteShutdown::Order::Restart, arguments);
    return send(RemoteShutdown::Order::Abort, arguments);
}
