#include "HXMessageBarItem.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QTextEdit>
#include <iterator>

#include "HXApplication.h"

namespace {

const int kIconSize = 24;

const char* const kTextEditStyleSheet =
    "QTextEdit { background-color: rgba(0,0,0,0); margin-top: 0.25em; max-height: 1.75em; min-height: "
    "1.75em; } QScrollBar { background-color: rgba(0,0,0,0); } "
    "QScrollBar::add-page,QScrollBar::sub-page,QScrollBar::handle { background-color: rgba(0,0,0,0); color: "
    "rgba(0,0,0,0); } QScrollBar::up-arrow,QScrollBar::down-arrow { color: rgb(0,0,0); } ";

const char* const kItemCountStyleSheet = "QLabel#mItemCount { font-style: italic; }";

// Theme icon and bar colours of a level; null for a level the bar does not know.
struct LevelLook {
    const char* icon;
    const char* styleSheet;
};

const LevelLook* levelLook(int level) {
    static const LevelLook looks[] = {
        {"/mIconInfo.png",
         "HXMessageBar { background-color: #e7f5fe; border: 1px solid #b9cfe4; } QLabel,QTextEdit { color: "
         "#2554a1; } "},
        {"/mIconWarning.svg",
         "HXMessageBar { background-color: #ffc800; border: 1px solid #e0aa00; } QLabel,QTextEdit { color: "
         "black; } "},
        {"/mIconCritical.png",
         "HXMessageBar { background-color: #d65253; border: 1px solid #9b3d3d; } QLabel,QTextEdit { color: "
         "white; } "},
        {"/mIconSuccess.png",
         "HXMessageBar { background-color: #dff0d8; border: 1px solid #8e998a; } QLabel,QTextEdit { color: "
         "black; } "},
    };
    return level >= 0 && level < int(std::size(looks)) ? &looks[level] : nullptr;
}

}  // namespace

HXMessageBarItem::HXMessageBarItem(const QString& title, const QString& text, int level, int duration,
                                   QWidget* parent)
    : QWidget(parent), mTitle(title), mText(text), mLevel(level), mDuration(duration) {
    writeContent();
}

QString HXMessageBarItem::title() const {
    return mTitle;
}

void HXMessageBarItem::setTitle(const QString& title) {
    mTitle = title;
    writeContent();
}

QString HXMessageBarItem::text() const {
    return mText;
}

void HXMessageBarItem::setText(const QString& text) {
    mText = text;
    writeContent();
}

int HXMessageBarItem::level() const {
    return mLevel;
}

void HXMessageBarItem::setLevel(int level) {
    mLevel = level;
    writeContent();
}

int HXMessageBarItem::duration() const {
    return mDuration;
}

void HXMessageBarItem::setDuration(int duration) {
    mDuration = duration;
}

void HXMessageBarItem::setIcon(const QIcon& icon) {
    mUserIcon = icon;
    writeContent();
}

void HXMessageBarItem::setWidget(QWidget* widget) {
    if (widget == mWidget) return;
    delete mWidget;
    mWidget = widget;
    writeContent();
}

QString HXMessageBarItem::getStyleSheet() const {
    return mStyleSheet;
}

void HXMessageBarItem::writeContent() {
    if (!mLayout) {
        mLayout = new QHBoxLayout(this);
        mLayout->setContentsMargins(0, 0, 0, 0);
    }
    if (!mLblIcon) {
        mLblIcon = new QLabel(this);
        mLayout->addWidget(mLblIcon);
    }
    writeIcon();
    writeText();
    // The extra widget sits third, after the icon and the text.
    QLayoutItem* third = mLayout->itemAt(2);
    if (mWidget && (!third || third->widget() != mWidget)) {
        mLayout->removeWidget(mWidget);
        mLayout->addWidget(mWidget);
    }
    writeStyleSheet();
    emit styleChanged(mStyleSheet);
}

void HXMessageBarItem::writeIcon() {
    QIcon icon = mUserIcon;
    if (icon.isNull()) {
        const LevelLook* look = levelLook(mLevel);
        icon = HXApplication::getThemeIcon(QString::fromLatin1(look ? look->icon : levelLook(0)->icon));
    }
    mLblIcon->setPixmap(icon.pixmap(kIconSize, QIcon::Normal, QIcon::Off));
}

void HXMessageBarItem::writeText() {
    if (mTitle.isEmpty() && mText.isEmpty()) {
        delete mTextEdit;
        mTextEdit = nullptr;
        return;
    }
    if (!mTextEdit) {
        mTextEdit = new QTextEdit(this);
        mTextEdit->setObjectName(QStringLiteral("textEdit"));
        mTextEdit->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Maximum);
        mTextEdit->setReadOnly(true);
        mTextEdit->setFrameShape(QFrame::NoFrame);
        mTextEdit->setStyleSheet(QString::fromLatin1(kTextEditStyleSheet));
        mLayout->addWidget(mTextEdit);
    }
    QString content = mText;
    if (!mTitle.isEmpty()) {
        // The trimmed title never ends with ": ", so only a final ':' spares the added colon.
        QString title = mTitle.trimmed();
        if (!content.isEmpty() && !title.endsWith(QLatin1Char(':')) && !title.endsWith(QLatin1String(": ")))
            title += QLatin1String(": ");
        content.prepend(QStringLiteral("<b>") + title + QStringLiteral(" </b>"));
    }
    mTextEdit->setText(content);
}

void HXMessageBarItem::writeStyleSheet() {
    // An unknown level keeps the sheet it had, and gets the item-count rule once more.
    if (const LevelLook* look = levelLook(mLevel)) mStyleSheet = QString::fromLatin1(look->styleSheet);
    mStyleSheet += QLatin1String(kItemCountStyleSheet);
}
