// A dialog that tests drive by clicks and keys; its widgets are known by their names.

#pragma once

#include <QAbstractButton>
#include <QLineEdit>
#include <QPointer>
#include <QVariant>
#include <QtTest>

class DialogDriver {
public:
    template <class Widget = QWidget>
    Widget *widget(const QString &name) const
    {
        auto *found = dialog->findChild<Widget *>(name);
        if (!found)
            qFatal("The dialog has no %s", qPrintable(name));
        return found;
    }
    QVariant value(const QString &name, const char *property) const
    {
        return widget(name)->property(property);
    }
    QString text(const QString &name) const { return value(name, "text").toString(); }
    bool isEnabled(const QString &name) const { return widget(name)->isEnabled(); }
    bool isChecked(const QString &name) const { return value(name, "checked").toBool(); }

    void click(const QString &name) const
    {
        auto *button = widget<QAbstractButton>(name);
        // A check box is wider than its text, whose middle alone takes the click.
        QTest::mouseClick(button, Qt::LeftButton, {},
                          button->isCheckable() ? QPoint(8, button->height() / 2) : QPoint());
    }
    /// Types `text` in the place of what the field holds.
    void type(const QString &field, const QString &text) const
    {
        auto *edit = widget<QLineEdit>(field);
        edit->selectAll();
        QTest::keyClick(edit, Qt::Key_Delete);
        QTest::keyClicks(edit, text);
    }

    QPointer<QWidget> dialog;
};
