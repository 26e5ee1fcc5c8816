#include "Tool.h"

#include <sys/wait.h>
#include <unistd.h>
#include <vector>

namespace {

[[noreturn]] void become(const QByteArray &program, const QByteArrayList &arguments, const QByteArray &folder,
                         int output)
{
    std::vector<char *> words = {const_cast<char *>(program.constData())};
    for (const QByteArray &argument : arguments)
        words.push_back(const_cast<char *>(argument.constData()));
    words.push_back(nullptr);
    ::dup2(output, STDOUT_FILENO);
    ::dup2(output, STDERR_FILENO);
    if (::chdir(folder.constData()) == 0)
        ::execvp(words[0], words.data());
    ::_exit(127);
}

} // namespace

// Not by QProcess, whose arguments are texts.
Tool Tool::run(const QByteArray &program, const QByteArrayList &arguments, const QByteArray &folder)
{
    Tool tool;
    int ends[2];
    if (::pipe(ends) != 0)
        return tool;
    const pid_t child = ::fork();
    if (child == 0)
        become(program, arguments, folder, ends[1]);
    ::close(ends[1]);
    char buffer[65536];
    for (ssize_t got = 0; (got = ::read(ends[0], buffer, sizeof buffer)) > 0;)
        tool.output += QByteArray(buffer, got);
    ::close(ends[0]);
    int status = 0;
    ::waitpid(child, &status, 0);
    tool.code = WIFEXITED(status) ? WEXITSTATUS(status) : -1;
    return tool;
}
