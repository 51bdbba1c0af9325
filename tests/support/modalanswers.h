// Answers the modal windows that a workflow opens, as a user would, and remembers what they said.
#pragma once

#include <QApplication>
#include <QMessageBox>
#include <QPushButton>
#include <QStringList>
#include <QTest>
#include <QTimer>

#include <functional>

class ModalAnswers : public QObject
{
public:
    using Answer = std::function<bool(QWidget *)>;

    /** From now on, every modal window is shown to the answers in turn until one takes it. */
    ModalAnswers()
    {
        connect(&m_timer, &QTimer::timeout, this, &ModalAnswers::look);
        m_timer.start(5);
    }

    /** Adds an answer; it returns true when it dealt with the window. */
    void add(Answer answer) { m_answers.append(std::move(answer)); }

    /** Clicks the named button in every window of the class. */
    template <typename Window>
    void click(const QString &button)
    {
        add([button](QWidget *window) {
            auto *const wanted = qobject_cast<Window *>(window);
            if (wanted == nullptr)
                return false;
            QTest::mouseClick(wanted->template findChild<QPushButton *>(button), Qt::LeftButton);
            return true;
        });
    }

    /** Presses this standard button in every message box and keeps its title and text. */
    void pressInMessageBoxes(QMessageBox::StandardButton button)
    {
        add([this, button](QWidget *window) {
            auto *const box = qobject_cast<QMessageBox *>(window);
            if (box == nullptr)
                return false;
            m_messages.append(box->windowTitle() + QStringLiteral(": ") + box->text());
            QTest::mouseClick(box->button(button), Qt::LeftButton);
            return true;
        });
    }

    /** "title: text" of each message box that was answered. */
    const QStringList &messages() const { return m_messages; }

private:
    void look()
    {
        QWidget *const window = QApplication::activeModalWidget();
        if (window == nullptr)
            return;
        for (const Answer &answer : std::as_const(m_answers)) {
            if (answer(window))
                return;
        }
    }

    QTimer m_timer;
    QList<Answer> m_answers;
    QStringList m_messages;
};
