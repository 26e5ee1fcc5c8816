#!/usr/bin/python3
"""Each lint against planted offenders, and against code that it has to let pass."""

import shutil
import subprocess
import sys
import tempfile
import unittest
from pathlib import Path

HERE = Path(__file__).resolve().parent


class LintTest(unittest.TestCase):
    lint = ''

    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.root = Path(folder.name)

    def plant(self, name, text):
        path = self.root / name
        path.parent.mkdir(parents=True, exist_ok=True)
        path.write_text(text, encoding='utf-8')

    def run_lint(self):
        return subprocess.run([sys.executable, str(HERE / self.lint), str(self.root)], capture_output=True, text=True)

    def assert_refused(self, text, message, name='tool/frmTool.cpp', line=1):
        with self.subTest(text=text[:200]):
            self.plant(name, text)
            found = self.run_lint()
            self.assertEqual(found.returncode, 1, found.stderr)
            self.assertIn(f'{name}:{line}:', found.stdout)
            self.assertIn(message, found.stdout)
            (self.root / name).unlink()

    def assert_passes(self, text, name='tool/frmTool.cpp'):
        with self.subTest(text=text[:200]):
            self.plant(name, text)
            found = self.run_lint()
            self.assertEqual((found.returncode, found.stdout), (0, ''), found.stderr)
            (self.root / name).unlink()


class Links(LintTest):
    lint = 'links.py'

    def test_links_past_the_table_are_refused(self):
        for command in ('target_link_libraries', 'target_include_directories', 'include_directories'):
            self.assert_refused(f'quill_module()\n{command}(word PUBLIC shell)\n', f'{command} past the table',
                                name='word/CMakeLists.txt', line=2)

    def test_modules_pass(self):
        self.assert_passes('# target_link_libraries() would go past the table\nquill_module(LINKS frame)\n',
                           'word/CMakeLists.txt')


class Excerpts(LintTest):
    lint = 'excerpts.py'
    source = 'class Tool\n{\npublic:\n    void go();\n\nprivate:\n    int m_count;\n};\n'

    def setUp(self):
        super().setUp()
        self.guide_folder = self.root
        self.root = self.root / 'src'
        self.plant('tool/Tool.h', self.source)

    def run_on(self, code, comment='<!-- src/tool/Tool.h -->\n'):
        (self.guide_folder / 'CONTRIBUTING.md').write_text(f'# Guide\n\n{comment}```cpp\n{code}```\n', encoding='utf-8')
        return self.run_lint()

    def assert_passes(self, code, **arguments):
        with self.subTest(code=code):
            found = self.run_on(code, **arguments)
            self.assertEqual((found.returncode, found.stdout), (0, ''), found.stderr)

    def assert_refused(self, code, message, line=5, **arguments):
        with self.subTest(code=code):
            found = self.run_on(code, **arguments)
            self.assertEqual(found.returncode, 1, found.stderr)
            self.assertIn(f'CONTRIBUTING.md:{line}:', found.stdout)
            self.assertIn(message, found.stdout)

    def test_excerpts_pass(self):
        self.assert_passes(self.source)
        self.assert_passes('class Tool\n{\n...\n    int m_count;\n};\n')
        self.assert_passes('    void go();\n    // ...\n};\n')

    def test_other_lines_are_refused(self):
        self.assert_refused('class Tool\n{\npublic:\n    int go();\n', 'not in src/tool/Tool.h')
        self.assert_refused('class Tool\n    void go();\n', 'not in src/tool/Tool.h')
        self.assert_refused('class Tool\n...\n    int m_number;\n', 'not in src/tool/Tool.h', line=7)
        self.assert_refused('    int m_count;\n...\n    void go();\n', 'not in src/tool/Tool.h', line=7)

    def test_a_block_names_a_file_that_exists(self):
        self.assert_refused('int a;\n', 'names no file', line=4, comment='')
        self.assert_refused('int a;\n', 'names no file', line=6, comment='<!-- src/tool/Tool.h -->\n\n')
        self.assert_refused('int a;\n', 'src/tool/Gone.h does not exist', comment='<!-- src/tool/Gone.h -->\n')

    def test_a_missing_guide_is_refused(self):
        found = self.run_lint()
        self.assertEqual(found.returncode, 1)
        self.assertIn('CONTRIBUTING.md:1: is missing', found.stdout)


class Connects(LintTest):
    lint = 'connects.py'

    def test_bare_connects_are_refused(self):
        for target in ('this, [this] { go(); }', '[this] { go(); }', 'this, &frmTool::cmdGo_Click',
                       'this, [=](bool on) { run([&] { go(on); }); }', 'this, &frmTool::cmdGo_Click, Qt::QueuedConnection',
                       'other, &frmTool::Changed', 'handler'):
            self.assert_refused(f'connect(cmdGo, &QPushButton::clicked, {target});\n', 'bare connect')

    def test_the_line_is_reported(self):
        self.assert_refused('int a;\n\nvoid f()\n{\n    QObject::connect(a,\n        &A::b,\n        [] {});\n}\n',
                            'bare connect', line=5)

    def test_names_in_text_are_refused(self):
        self.assert_refused('connect(a, SIGNAL(clicked()), this, SLOT(go()));\n', 'by text')

    def test_the_bus_may_name_a_gated_slot(self):
        call = 'bus.connect(service, path, portal, name, this, SLOT(changed(QString)));\n'
        self.assert_passes(call + 'void Scheme::changed(const QString &key)\n{\n    run([&] { go(key); });\n}\n')
        self.assert_refused(call + 'void Scheme::changed(const QString &key)\n{\n    go(key);\n}\n', 'by text')
        self.assert_refused(call + 'void Scheme::changed(const QString &key)\n{\n    run([&] { go(key); });\n    go(key);\n}\n',
                            'by text')

    def test_qts_own_functions_pass(self):
        self.assert_passes('connect(this, &QObject::destroyed, &loop, &QEventLoop::quit);\n')
        self.assert_passes('connect(a, &QAction::triggered, b, &QAction::trigger, Qt::QueuedConnection);\n')
        self.assert_passes('connect(a, &QSpinBox::valueChanged, b, qOverload<int>(&QLabel::setNum));\n')

    def test_a_forward_to_a_declared_signal_passes(self):
        self.plant('controls/Toolbar.h', 'class Toolbar : public QToolBar\n{\n    Q_OBJECT\npublic:\n    void go();\n'
                                         'Q_SIGNALS:\n    void ButtonClick(const QString &key);\n\npublic Q_SLOTS:\n'
                                         '    void stop();\n};\n')
        self.assert_passes('connect(action, &QAction::triggered, this, &Toolbar::ButtonClick);\n')
        self.assert_refused('connect(action, &QAction::triggered, this, &Toolbar::stop);\n', 'bare connect')
        self.assert_refused('connect(action, &QAction::triggered, other, &Toolbar::ButtonClick);\n', 'bare connect')

    def test_what_only_looks_like_a_connect_passes(self):
        self.assert_passes('// connect(a, &A::b, [] {});\n/* connect(a, &A::b, [] {}); */\n'
                           'const char *text = "connect(a, &A::b, [] {})";\nconst auto raw = R"(connect(a, &A::b, c))";\n'
                           'session.connect(host, port);\n::connect(fd, address, size);\nbool connect(const QString &host);\n'
                           "disconnect(a, &A::b, this, &A::c);\nconst int million = 1'000'000;\n"
                           'on(a, &A::b, this, [] {});\n')

    def test_steps_that_run_later_are_gated(self):
        for call in ('QTimer::singleShot(0, this,', 'QMetaObject::invokeMethod(this,'):
            self.assert_passes(f'{call} [this] {{ run([&] {{ go(); }}); }});\n')
            self.assert_passes(f'{call} [this]() mutable {{\n    run([&] {{ go(); }});\n}});\n')
            self.assert_passes(f'{call} &QWidget::close);\n')
            self.assert_refused(f'{call} [this] {{ go(); }});\n', 'runs later')
            self.assert_refused(f'{call} [this] {{ go(); run([&] {{ go(); }}); }});\n', 'runs later')
            self.assert_refused(f'{call} [this] {{ run([&] {{ go(); }}); stop(); }});\n', 'runs later')
            self.assert_refused(f'{call} &frmTool::go);\n', 'runs later')
        self.assert_refused('QMetaObject::invokeMethod(this, "go");\n', 'runs later')
        self.assert_refused('timer.callOnTimeout([this] { go(); });\n', 'callOnTimeout')

    def test_the_gate_itself_passes(self):
        self.assert_passes('return QObject::connect(sender, signal, context, [] {});\n', 'platform/core/EventGate.h')


class Waits(LintTest):
    lint = 'waits.py'

    def test_own_event_loops_are_refused(self):
        for wait in ('QCoreApplication::processEvents();', 'QEventLoop loop;', 'menu.exec(QCursor::pos());',
                     'dialog->exec();', 'QMenu::exec(items);'):
            self.assert_refused(f'\n{wait}\n', 'a wait past processPendingEvents()', line=2)

    def test_a_dialog_that_waits_for_itself_is_refused(self):
        for wait in ('exec();', 'return exec() == Accepted;', 'if (exec() == Accepted)', 'const bool ok = exec();',
                     'run([&] { exec(); });'):
            self.assert_refused(f'class Box : public QDialog\n{{\n    int ask()\n    {{\n        {wait}\n    }}\n}};\n',
                                'a wait past processPendingEvents()', line=5)
        self.assert_passes('exec();\n', 'platform/forms/Form.cpp')

    def test_a_declared_exec_passes(self):
        self.assert_passes('class Connection\n{\n    void exec(const QString &text);\n    Rows *exec(int);\n};\n'
                           'void Connection::select()\n{\n}\n')

    def test_waits_through_the_gate_pass(self):
        self.assert_passes('processPendingEvents();\n// processEvents() would be wrong here\nvoid exec(int);\n')

    def test_the_owners_pass(self):
        self.assert_passes('QCoreApplication::processEvents();\n', 'platform/core/EventGate.cpp')
        self.assert_passes('QEventLoop loop;\nloop.exec();\n', 'platform/forms/Form.cpp')
        self.assert_passes('drag->exec(actions);\n', 'platform/controls/RowDrag.cpp')
        self.assert_refused('drag->exec(actions);\n', 'a wait', name='platform/controls/ListBox.cpp')
        self.assert_refused('QEventLoop loop;\n', 'a wait', name='word/EventGate.cpp')


class Events(LintTest):
    lint = 'events.py'

    def test_work_outside_run_is_refused(self):
        for body in ('go();', 'm_list.clear();', 'if (event->key() == 1) go();', 'Base::otherEvent(event);',
                     'Base::keyPressEvent(event); run([&] { go(); }); go();'):
            self.assert_refused(f'\nvoid Tool::keyPressEvent(QKeyEvent *event)\n{{\n    {body}\n}}\n',
                                'outside run()', line=2)
        self.assert_refused('bool Tool::eventFilter(QObject *watched, QEvent *event)\n{\n    go();\n}\n', 'eventFilter()')
        self.assert_refused('class Tool\n{\n    void closeEvent(QCloseEvent *) override { go(); }\n};\n', 'closeEvent()',
                            name='tool/Tool.h', line=3)

    def test_what_Qt_calls_besides_events_is_gated_too(self):
        for override, base in (('accept()', 'QDialog::accept()'), ('reject()', 'QDialog::reject()'),
                               ('done(int result)', 'QDialog::done(result)'),
                               ('showPopup()', 'QComboBox::showPopup()'), ('hidePopup()', 'QComboBox::hidePopup()'),
                               ('startDrag(Qt::DropActions actions)', 'QListView::startDrag(actions)'),
                               ('setData(const QModelIndex &index, const QVariant &value, int role)',
                                'QStringListModel::setData(index, value, role)'),
                               ('nativeEvent(const QByteArray &type, void *message, qintptr *result)',
                                'QWidget::nativeEvent(type, message, result)'),
                               ('timerEvent(QTimerEvent *event)', 'QObject::timerEvent(event)')):
            name = override[:override.index('(')]
            self.assert_refused(f'\nvoid Tool::{override}\n{{\n    {base};\n    go();\n}}\n', f'{name}() calls go()', line=2)
            self.assert_refused(f'class Tool\n{{\n    void {override} override {{ go(); }}\n}};\n', f'{name}() calls go()',
                                name='tool/Tool.h', line=3)
            self.assert_passes(f'void Tool::{override}\n{{\n    {base};\n    run([&] {{ go(); }});\n}}\n')

    def test_own_functions_of_those_names_pass(self):
        self.assert_passes('bool Plan::accept(int position)\n{\n    go();\n}\nvoid List::done()\n{\n    go();\n}\n'
                           'void Drop::setData(const QByteArray &data)\n{\n    go();\n}\n')

    def test_work_without_a_call_is_refused(self):
        for body, fault in (('delete m_row;', 'makes or deletes an object'), ('m_row = new Row;', 'makes or deletes'),
                            ('new Row;', 'makes or deletes'), ('throw 13;', 'throws'), ('m_rows << 1;', 'streams'),
                            ('m_name = text;', 'assigns'), ('m_row->name += text;', 'assigns'), ('m_rows[1] = 2;', 'assigns'),
                            ('if (m_isOpen)\n        m_isOpen = false;', 'assigns'), ('++m_count;', 'counts'),
                            ('Guard guard{text};', 'makes an object'), ('Guard{text};', 'makes an object'),
                            ('Guard guard;', 'makes an object')):
            self.assert_refused(f'\nvoid Tool::showEvent(QShowEvent *)\n{{\n    {body}\n}}\n', f'showEvent() {fault}', line=2)
            self.assert_passes(f'void Tool::showEvent(QShowEvent *)\n{{\n    run([&] {{ {body} }});\n}}\n')

    def test_simple_variables_pass(self):
        self.assert_passes('bool Tool::event(QEvent *event)\n{\n    bool isOwn = true;\n    const auto type = event->type();\n'
                           '    if (type == 1) {\n        run([&] { go(); });\n    } else {\n        isOwn == m_isOwn;\n    }\n'
                           '    return isOwn || QWidget::event(event);\n}\n')

    def test_gated_work_passes(self):
        self.assert_passes('void Tool::keyPressEvent(QKeyEvent *event)\n{\n    QWidget::keyPressEvent(event);\n'
                           '    if (!event->spontaneous())\n        run([&] { go(one(two)); });\n}\n')
        self.assert_passes('bool Tool::eventFilter(QObject *watched, QEvent *event)\n{\n'
                           '    const int key = static_cast<QKeyEvent *>(event)->key();\n'
                           '    run([&] { go(key); });\n    return QObject::eventFilter(watched, event);\n}\n')
        self.assert_passes('class Tool\n{\n    void closeEvent(QCloseEvent *event) override { event->ignore(); }\n};\n',
                           'tool/Tool.h')

    def test_calls_of_events_pass(self):
        self.assert_passes('void f(QObject *o, QEvent *e)\n{\n    o->event(e);\n}\nvoid closeEvent(QCloseEvent *event);\n')


class Prompts(LintTest):
    lint = 'prompts.py'

    def test_dialogs_outside_the_prompts_are_refused(self):
        for name in ('QMessageBox', 'QFileDialog', 'QInputDialog', 'QColorDialog', 'QFontDialog', 'QPrintDialog',
                     'QPageSetupDialog'):
            self.assert_refused(f'\nauto reply = {name}::ask(this);\n', name, line=2)
            self.assert_refused(f'#include <{name}>\n', name, name='platform/forms/Form.cpp')

    def test_the_prompts_pass(self):
        for prompt in ('Prompts', 'CommonDialog'):
            self.assert_passes('#include <QMessageBox>\n#include <QFileDialog>\n', f'platform/forms/{prompt}.cpp')
            self.assert_refused('#include <QMessageBox>\n', 'QMessageBox', name=f'word/{prompt}.cpp')

    def test_an_input_box_is_one_of_our_own(self):
        for name in ('platform/forms/InputBox.cpp', 'platform/forms/Prompts.cpp', 'tool/frmTool.cpp'):
            self.assert_refused('#include <QInputDialog>\n', 'QInputDialog', name=name)
        self.assert_refused('#include <QMessageBox>\n', 'QMessageBox', name='platform/forms/InputBox.cpp')

    def test_the_error_message_dialog_is_nowhere(self):
        self.assert_refused('QErrorMessage box;\n', 'QErrorMessage', name='platform/forms/Prompts.cpp')

    def test_dialogs_of_progress_and_steps_are_refused(self):
        for name in ('QProgressDialog', 'QWizard', 'QPrintPreviewDialog'):
            self.assert_refused(f'\n{name} box;\n', f'{name} outside the prompts', line=2)
            self.assert_refused(f'#include <{name}>\n', name, name='platform/forms/Form.cpp')

    def test_own_dialogs_are_refused(self):
        for head in ('class Box : public QDialog', 'class Box final : public Base, public QDialog', 'struct Box :\n    QDialog'):
            self.assert_refused(f'\n{head}\n{{\n}};\n', 'is no Form', name='tool/Box.h', line=2)
            self.assert_passes(f'{head}\n{{\n}};\n', 'platform/forms/Box.h')
        self.assert_passes('class dlgFindReplace : public QDialog\n{\n};\n', 'word/dlgFindReplace.h')
        self.assert_refused('class dlgFindReplace : public QDialog\n{\n};\n', 'is no Form', name='tool/dlgFindReplace.h')

    def test_other_names_pass(self):
        self.assert_passes('// as QMessageBox does\nclass QDialog;\nint f(QDialog &dialog);\nMyQMessageBox box;\n'
                           'class Frame : public QWidget\n{\n    QDialog *m_dialog;\n};\n')


class Sizes(LintTest):
    lint = 'sizes.py'

    def test_long_files_are_refused(self):
        self.assert_refused('\n' * 601, '601 lines', line=601)
        self.assert_passes('\n' * 600)

    def test_what_is_left_for_later_is_refused(self):
        for word in ('TODO', 'FIXME', 'XXX'):
            self.assert_refused(f'int a; // {word}: finish\n', f'{word} left')
        self.assert_passes('const char *name = "file.XXXXXX";\n')

    def test_one_class_to_a_header_of_its_name(self):
        self.assert_passes('class Other;\nstruct Row\n{\n};\n\nclass Tool : public Form\n{\n    class Step\n    {\n    };\n};\n',
                           'tool/Tool.h')
        self.assert_refused('class Tool\n{\n};\n\nclass Step\n{\n};\n', 'second class', name='tool/Tool.h', line=5)
        self.assert_refused('class Step\n{\n};\n', 'belongs in Step.h', name='tool/Tool.h')


@unittest.skipUnless(shutil.which('clang-format'), 'clang-format is not installed; ./test installs it')
class Formatting(LintTest):
    lint = 'formatting.py'

    def setUp(self):
        super().setUp()
        shutil.copy(HERE.parents[1] / '.clang-format', self.root)

    def run_lint(self):
        found = super().run_lint()
        found.stdout += found.stderr
        return found

    def test_what_is_not_formatted_is_refused(self):
        self.assert_refused('int  a ;\n', 'clang-format-violations')
        self.assert_refused('void f() { if (1) return; }\n', 'clang-format-violations', name='tool/Tool.h')

    def test_what_is_formatted_passes(self):
        self.assert_passes('void f()\n{\n    return;\n}\n')

    def test_a_folder_that_is_missing_passes(self):
        self.assertEqual(subprocess.run([sys.executable, str(HERE / self.lint), str(self.root / 'gone')]).returncode, 0)


class Layering(LintTest):
    """Configures a small tree of folders with the project's own build files."""

    def configure(self, folders, extra=''):
        for folder, declaration in folders.items():
            self.plant(f'src/{folder}/CMakeLists.txt', declaration + '\n')
            self.plant(f'src/{folder}/Empty.cpp', 'int empty();\n')
        self.plant('CMakeLists.txt', '\n'.join([
            'cmake_minimum_required(VERSION 3.25)',
            'project(Tree LANGUAGES CXX)',
            f'include({HERE.parents[1]}/cmake/dependencies.cmake)',
            f'include({HERE.parents[1]}/cmake/quill.cmake)',
            extra,
            *(f'add_subdirectory(src/{folder})' for folder in folders)]))
        command = ['cmake', '-G', 'Ninja', '-S', str(self.root), '-B', str(self.root / 'build')]
        return subprocess.run(command, capture_output=True, text=True)

    def assert_configures(self, *tree):
        found = self.configure(*tree)
        self.assertEqual(found.returncode, 0, found.stderr)

    def test_private_headers_of_another_Qt_are_refused(self):
        quick = HERE.parents[1] / 'src/platform/richtext/quick'
        folder = self.root / 'src/platform/richtext/quick'
        shutil.copytree(quick, folder)
        self.plant('CMakeLists.txt', f'''
            cmake_minimum_required(VERSION 3.25)
            project(Probe LANGUAGES NONE)
            set(Qt6_VERSION 6.4.3)
            set(QUILL_QT_PRIVATE ON)
            include({HERE.parents[1]}/cmake/dependencies.cmake)
            include({HERE.parents[1]}/cmake/quill.cmake)
            add_subdirectory(src/platform/richtext/quick)
            ''')
        command = ['cmake', '-G', 'Ninja', '-S', str(self.root), '-B', str(self.root / 'build')]
        found = subprocess.run(command, capture_output=True, text=True)
        self.assertNotEqual(found.returncode, 0)
        self.assertIn('and this is Qt 6.4.3', ' '.join(found.stderr.split()))

    def assert_stops(self, message, *tree):
        found = self.configure(*tree)
        self.assertNotEqual(found.returncode, 0)
        self.assertIn(message, ' '.join(found.stderr.split()))  # CMake breaks the lines of a message

    def test_an_allowed_link_passes(self):
        self.assert_configures({'platform/core': 'quill_module()', 'platform/forms': 'quill_module(LINKS platform/core)'})

    def test_a_link_that_the_table_lacks_is_refused(self):
        for linking, link in (('platform/archive', 'platform/forms'), ('platform/richtext/rtf', 'Qt6::Widgets'),
                              ('platform/forms', 'platform/controls'), ('word', 'shell')):
            with self.subTest(linking=linking, link=link):
                self.assert_stops(f'{linking} may not link {link}: cmake/dependencies.cmake does not allow it.',
                                  {linking: f'quill_module(LINKS {link})'})

    def test_a_plugin_obeys_the_table(self):
        self.assert_stops('view/plugin may not link platform/forms: cmake/dependencies.cmake does not allow it.',
                          {'platform/forms': 'quill_module()', 'view/plugin': 'quill_plugin(LINKS platform/forms)'})

    def test_a_plugin_that_links_its_interface_passes(self):
        self.assert_configures({'view': 'quill_interface()', 'view/plugin': 'quill_plugin(LINKS view)'},
                               'quill_allow(view/plugin TO view)')

    def test_a_plugin_that_links_a_static_library_is_refused(self):
        for declaration in ('quill_plugin', 'quill_interface'):
            with self.subTest(declaration=declaration):
                self.assert_stops('view may not link platform/forms: its statics would come twice',
                                  {'platform/forms': 'quill_module()', 'view': f'{declaration}(LINKS platform/forms)'},
                                  'quill_allow(view TO platform/forms)')


class WithoutQtPrivate(LintTest):
    """The whole project is configured without Qt's private headers."""

    def test_it_configures_and_takes_none_of_them(self):
        command = ['cmake', '-G', 'Ninja', '-S', str(HERE.parents[1]), '-B', str(self.root), '-DQUILL_QT_PRIVATE=OFF']
        found = subprocess.run(command, capture_output=True, text=True)
        self.assertEqual(found.returncode, 0, found.stderr)
        commands = (self.root / 'compile_commands.json').read_text(encoding='utf-8')
        self.assertIn('/quick/plain/', commands)
        self.assertNotIn('/quick/internals/', commands)
        self.assertNotRegex(commands, r'/QtGui/6\.[0-9.]+')  # where the private headers are


if __name__ == '__main__':
    unittest.main()
