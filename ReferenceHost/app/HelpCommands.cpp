// The guide is the one in docs/, compiled in.

#include "app/HelpCommands.h"

#include "app/HostWindow.h"

#include <QDialog>
#include <QFile>
#include <QMessageBox>
#include <QTextBlock>
#include <QTextBrowser>
#include <QVBoxLayout>

#include <algorithm>

namespace refhost {

namespace {

/// The name of the heading `title` in links within a Markdown file.
QString anchorOf(const QString &title)
{
    QString anchor;
    for (const QChar character : title.toLower()) {
        if (character.isLetterOrNumber() || character == QLatin1Char('-'))
            anchor += character;
        else if (character == QLatin1Char(' '))
            anchor += QLatin1Char('-');
    }
    return anchor;
}

void goToHeading(QTextBrowser &browser, const QString &anchor)
{
    for (QTextBlock block = browser.document()->begin(); block.isValid(); block = block.next()) {
        if (block.blockFormat().headingLevel() == 0 || anchorOf(block.text()) != anchor)
            continue;
        QTextCursor end(browser.document());
        end.movePosition(QTextCursor::End);
        browser.setTextCursor(end); // so that the heading comes to stand at the top
        browser.setTextCursor(QTextCursor(block));
        return;
    }
}

QString userGuide()
{
    QFile file(QStringLiteral(":/ReferenceHost/user-guide.md"));
    return file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll()) : QString();
}

} // namespace

bool listCommands(HostWindow &window, const HostDocumentPtr & /*document*/)
{
    const CommandRegistry &registry = window.session().commands;
    QStringList lines;
    for (const CommandPtr &command : registry.commands()) {
        const QString name = typedName(command->name);
        const QString description = registry.description(*command);
        if (name != QLatin1String("?"))
            lines << QStringLiteral("  %1 %2").arg(name, -16).arg(description);
    }
    std::sort(lines.begin(), lines.end());
    window.showMessage(lines.join(QLatin1Char('\n')));
    return true;
}

bool showUserGuide(HostWindow &window, const HostDocumentPtr & /*document*/)
{
    auto *dialog = new QDialog(&window);
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    dialog->setObjectName(QStringLiteral("userGuide"));
    dialog->setWindowTitle(QStringLiteral("User guide"));
    dialog->resize(820, 640);
    auto *browser = new QTextBrowser;
    browser->setSearchPaths({QStringLiteral(":/ReferenceHost")});
    browser->setOpenLinks(false);
    browser->setMarkdown(userGuide());
    QObject::connect(browser, &QTextBrowser::anchorClicked, browser,
                     [browser](const QUrl &link) { goToHeading(*browser, link.fragment()); });
    auto *layout = new QVBoxLayout(dialog);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(browser);
    dialog->show();
    return true;
}

bool showAbout(HostWindow &window, const HostDocumentPtr & /*document*/)
{
    QMessageBox::about(
        &window, QStringLiteral("About Reference Host"),
        QStringLiteral("<h3>Reference Host %1</h3>"
                       "<p>A CAD window that add-ins for Korvane run in.</p>"
                       "<p>Qt %2 (GNU LGPL 3)<br>@node-projects/acad-ts %3 (MIT), which reads and writes "
                       "DWG and DXF<br>mimalloc (MIT)</p>")
            .arg(QStringLiteral(KORVANE_PRODUCT_VERSION), QLatin1String(qVersion()),
                 QStringLiteral(KORVANE_ENCODER_VERSION)));
    return true;
}

} // namespace refhost
