#include "DialogAnswerer.h"

#include <QAbstractButton>
#include <QApplication>
#include <QFileDialog>
#include <QLineEdit>
#include <QMessageBox>
#include <QTest>

DialogAnswerer::DialogAnswerer() {
    timer_.setInterval(1);
    connect(&timer_, &QTimer::timeout, this, &DialogAnswerer::Poll);
}

void DialogAnswerer::Begin(const QString &path, bool yes) {
    path_ = path;
    yes_ = yes;
    seen_.clear();
    typedInto_.clear();
    timer_.start();
}

void DialogAnswerer::End() {
    timer_.stop();
}

bool DialogAnswerer::SawBox(const QString &title) const {
    const QString prefix = QStringLiteral("box:") + title + QLatin1Char(':');
    return std::any_of(seen_.begin(), seen_.end(), [&](const QString &s) { return s.startsWith(prefix); });
}

void DialogAnswerer::Poll() {
    QWidget *modal = QApplication::activeModalWidget();
    if (!modal || !modal->isVisible())
        return;
    if (auto *dialog = qobject_cast<QFileDialog *>(modal)) {
        auto *edit = dialog->findChild<QLineEdit *>(QStringLiteral("fileNameEdit"));
        if (path_.isEmpty() || typedInto_ == dialog || !edit) {
            QTest::keyClick(dialog, Qt::Key_Escape);
            return;
        }
        seen_ << QStringLiteral("file:") + dialog->windowTitle();
        typedInto_ = dialog;
        edit->setText(path_);
        QTest::keyClick(edit, Qt::Key_Return);
        return;
    }
    if (auto *box = qobject_cast<QMessageBox *>(modal)) {
        seen_ << QStringLiteral("box:%1:%2").arg(box->windowTitle(), box->text());
        QAbstractButton *button = box->button(yes_ ? QMessageBox::Yes : QMessageBox::No);
        if (!button)
            button = box->button(QMessageBox::Ok);
        if (!button)
            button = box->escapeButton();
        if (button)
            button->click();
        else
            box->reject();
        return;
    }
    seen_ << QStringLiteral("other:") + modal->objectName();
    modal->close();
}
