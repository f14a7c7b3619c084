// Where you stopped: the lessons that were on last, in the list's place while nothing is open.
#pragma once

#include "model/recent_texts.h"

#include <QAbstractListModel>
#include <QListView>
#include <QStyledItemDelegate>

#include <functional>
#include <vector>

namespace orvanta {

/// The lessons, and below them one row that forgets them.
class StartPageModel : public QAbstractListModel
{
    Q_OBJECT

public:
    StartPageModel(TextLanguage language, QObject* parent);

    /// Looks on the disk which of them are there.
    void setLessons(std::vector<RecentLesson> lessons);
    /// Null for the row that forgets, and outside the list.
    [[nodiscard]] const RecentLesson* lesson(int row) const;
    [[nodiscard]] bool isForgetRow(int row) const { return row >= 0 && row == lessonCount(); }
    [[nodiscard]] int lessonCount() const { return static_cast<int>(m_rows.size()); }
    [[nodiscard]] bool isThere(int row) const;
    /// The folder; of one that is gone, that it is.
    [[nodiscard]] QString folderAt(int row) const;
    /// What stands at the row's right.
    [[nodiscard]] QString placeAt(int row) const;
    /// Of the page, by the last part of its key.
    [[nodiscard]] QString text(QStringView key) const;

    [[nodiscard]] int rowCount(const QModelIndex& parent) const override;
    [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override;

private:
    struct Row
    {
        RecentLesson lesson;
        bool isThere = false;
    };

    TextLanguage m_language;
    std::vector<Row> m_rows;
};

/// Paints a lesson: a sign, title above folder, at the right the place above a bar.
class StartPageDelegate : public QStyledItemDelegate
{
    Q_OBJECT

public:
    StartPageDelegate(const StartPageModel* model, QObject* parent);

    /// 1: as large as it is drawn.
    void setZoom(double zoom) { m_zoom = zoom; }
    void paint(QPainter* painter, const QStyleOptionViewItem& option,
               const QModelIndex& index) const override;
    [[nodiscard]] QSize sizeHint(const QStyleOptionViewItem& option,
                                 const QModelIndex& index) const override;

private:
    struct Look
    {
        QColor title;
        QColor second; // folder and place
        QColor warning;
        bool current = false;
        bool isThere = true;
    };

    struct Places
    {
        QRect title;
        QRect folder;
        QRect place;
    };

    [[nodiscard]] static Places placesIn(const QRect& row, int placeWidth);
    [[nodiscard]] static Look lookOf(const QStyleOptionViewItem& option, bool isThere);
    static void paintGround(QPainter& painter, const QStyleOptionViewItem& option);
    static void paintSign(QPainter& painter, const QRect& row, const Look& look);
    static void paintBar(QPainter& painter, const QRect& row, const RecentLesson& lesson,
                         bool current);
    void paintLesson(QPainter& painter, const QRect& row, int number, const Look& look) const;
    void paintForget(QPainter& painter, const QRect& row, const Look& look) const;

    const StartPageModel* m_model;
    double m_zoom = 1;
};

/// A click or Return goes on with a lesson, Delete takes it off the list. Other keys pass on to the
/// window. Files can be dropped here as on the list that it stands for.
class StartPageList : public QListView
{
    Q_OBJECT

public:
    StartPageList(TextLanguage language, QWidget* parent);

    /// The current row stays, or the one that has come into its place.
    void setLessons(std::vector<RecentLesson> lessons);
    [[nodiscard]] const StartPageModel& rows() const { return *m_model; }
    /// Rows, texts and signs, times this.
    void setZoom(double zoom);
    /// Of the current row, as the Menu key does.
    void askForMenu();
    void keyboardSearch(const QString& /*search*/) override {}

Q_SIGNALS:
    void lessonChosen(const orvanta::RecentLesson& lesson);
    void takeOffAsked(const QString& path);
    void forgetAsked();
    /// Their paths, at least one.
    void filesDropped(const QStringList& files);

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dragMoveEvent(QDragMoveEvent* event) override;
    void dropEvent(QDropEvent* event) override;

private:
    void choose(const QModelIndex& index);
    void takeOff(int row);
    void openMenu(QPoint place);

    StartPageModel* m_model;
    StartPageDelegate* m_delegate;
};

} // namespace orvanta
