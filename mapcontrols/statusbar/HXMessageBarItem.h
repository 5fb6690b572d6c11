#pragma once
// HXMessageBarItem: one message of an HXMessageBar — a level icon (or the caller's icon), a bold
// title, a text that may hold rich text and an optional extra widget. It publishes a style sheet for
// its level, which the bar adopts while the item is shown. The bar owns the items pushed onto it.
#include <QIcon>
#include <QString>
#include <QWidget>

#include "HXMapControlsExport.h"

class QHBoxLayout;
class QLabel;
class QTextEdit;

class HXMAPCONTROLS_EXPORT HXMessageBarItem : public QWidget {
    Q_OBJECT

public:
    // Levels: 0 info, 1 warning, 2 critical, 3 success. A duration of 0 or less keeps the message
    // until it is removed; otherwise it counts down that many ticks of the bar.
    HXMessageBarItem(const QString& title, const QString& text, int level = 0, int duration = 0,
                     QWidget* parent = nullptr);

    QString title() const;
    void setTitle(const QString& title);
    QString text() const;
    void setText(const QString& text);
    int level() const;
    void setLevel(int level);
    int duration() const;
    void setDuration(int duration);
    // A null icon shows the level's icon.
    void setIcon(const QIcon& icon);
    // Shown after the text; the item takes ownership. The previous widget is deleted.
    void setWidget(QWidget* widget);

    QString getStyleSheet() const;

signals:
    void styleChanged(const QString& styleSheet);

private:
    void writeContent();
    void writeIcon();
    void writeText();
    void writeStyleSheet();

    QString mTitle;
    QString mText;
    int mLevel = 0;
    int mDuration = 0;
    QWidget* mWidget = nullptr;
    QIcon mUserIcon;
    QHBoxLayout* mLayout = nullptr;
    QLabel* mLblIcon = nullptr;
    QString mStyleSheet;
    QTextEdit* mTextEdit = nullptr;
};
