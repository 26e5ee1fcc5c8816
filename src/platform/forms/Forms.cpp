#include "Forms.h"

#include <QPointer>
#include <algorithm>

namespace {

struct Window
{
    Forms::Instances instances;
    Forms::Factory factory;
    QPointer<Form> instance; ///< of a named window that is not loaded yet
};

QHash<QString, Window> &windows()
{
    static QHash<QString, Window> all;
    return all;
}

QList<Form *> &collection()
{
    static QList<Form *> forms;
    return forms;
}

} // namespace

void Forms::registerWindow(const QString &name, Instances instances, Factory factory)
{
    windows().insert(name, {instances, std::move(factory), {}});
}

void Forms::unregisterWindow(const QString &name)
{
    windows().remove(name);
}

Form &Forms::refer(const QString &name)
{
    const auto window = windows().find(name);
    if (window == windows().end())
        throw RuntimeError(ErrorNumber::ObjectRequired, {}, name);
    if (window->instances == Instances::One && window->instance)
        return *window->instance;
    window->instance = window->factory();
    return *window->instance;
}

const QList<Form *> &Forms::loaded()
{
    return collection();
}

QList<Form *> Forms::named(const QString &name)
{
    QList<Form *> forms;
    std::copy_if(collection().cbegin(), collection().cend(), std::back_inserter(forms),
                 [&](const Form *form) { return form->Name() == name; });
    return forms;
}

void Forms::add(Form &form)
{
    collection().append(&form);
}

void Forms::remove(Form &form)
{
    collection().removeOne(&form);
    const auto window = windows().find(form.Name());
    if (window != windows().end() && window->instance == &form)
        window->instance.clear();
}
