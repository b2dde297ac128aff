#pragma once

#include <QApplication>
#include <QDialog>
#include <QPointer>
#include <QTest>
#include <QTimer>

#include <functional>

// A dialog opened by a test the way the program opens it. The dialog deletes itself when it
// closes; one still open when the test ends is closed then, so a failing test never leaves a
// dialog (or a nested event loop) behind.
// The widget that has the keyboard focus, or the active window when none has, so that keys
// sent to it always land somewhere.
inline QWidget *Focus()
{
    QWidget *focus = QApplication::focusWidget();
    return focus ? focus : QApplication::activeWindow();
}

// How a modal run ended: the dialog never became the active modal window, it closed while
// being driven, or it was still open afterwards.
enum class ModalRun
{
    NotReached,
    Closed,
    StayedOpen
};

template<class Dialog> class DialogUnderTest
{
public:
    DialogUnderTest() : dialog(new Dialog) {}
    ~DialogUnderTest()
    {
        if (dialog)
            dialog->close();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }
    DialogUnderTest(const DialogUnderTest &) = delete;
    DialogUnderTest &operator=(const DialogUnderTest &) = delete;

    Dialog *operator->() const { return dialog; }
    Dialog *get() const { return dialog; }

    template<class Widget = QWidget> Widget *Child(const QString &name) const
    {
        return dialog->template findChild<Widget *>(name);
    }

    // True once the dialog has closed and deleted itself.
    bool Deleted() const
    {
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        return dialog.isNull();
    }

    // Opens the dialog with exec(), as the program does, and calls `whileOpen` from inside its
    // event loop once it is the active modal window and has the keyboard focus. A dialog still open
    // after `whileOpen` is closed then, so exec() always returns.
    ModalRun RunModal(const std::function<void()> &whileOpen)
    {
        ModalRun outcome = ModalRun::NotReached;
        QTimer::singleShot(0, dialog.data(), [&] {
            if (QApplication::activeModalWidget() == dialog &&
                QTest::qWaitForWindowActive(dialog.data())) {
                whileOpen();
                outcome = dialog && dialog->isVisible() ? ModalRun::StayedOpen : ModalRun::Closed;
            }
            if (dialog && dialog->isVisible())
                dialog->close();
        });
        dialog->exec();
        return outcome;
    }

    // Shows the dialog without a nested event loop, for clicks and keys sent to its window.
    bool Show()
    {
        dialog->show();
        return QTest::qWaitForWindowExposed(dialog.data());
    }

    // A left click at `place` of the client area, delivered to whatever control lies in front
    // there, as a real click would be.
    void ClickAt(const QPoint &place) const
    {
        QTest::mouseClick(dialog->windowHandle(), Qt::LeftButton, Qt::NoModifier, place);
    }

private:
    QPointer<Dialog> dialog;
};

// The body of a data-driven test of control places: the columns "name", "parent" (the object
// name of the widget it sits in) and "place" (its rectangle inside that widget). Also checks
// that the dialog's client area has the fixed size `client`.
template<class Dialog> void VerifyControlPlace(const QSize &client)
{
    QFETCH(QString, name);
    QFETCH(QString, parent);
    QFETCH(QRect, place);
    DialogUnderTest<Dialog> dialog;
    QCOMPARE(dialog->size(), client);
    QCOMPARE(dialog->minimumSize(), client);
    QCOMPARE(dialog->maximumSize(), client);
    QWidget *control = dialog.Child(name);
    QVERIFY2(control, qPrintable(name));
    QCOMPARE(control->parentWidget()->objectName(), parent);
    QCOMPARE(control->geometry(), place);
}

inline void AddPlaceColumns()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("parent");
    QTest::addColumn<QRect>("place");
}
