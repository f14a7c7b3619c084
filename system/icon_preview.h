// Shows the icon of a file type at its proper size.
#pragma once

#include <QFrame>
#include <QPixmap>

namespace orvanta {

class IconPreview : public QFrame
{
    Q_OBJECT

public:
    explicit IconPreview(QWidget* parent = nullptr);

    /// An .ico file. What is no picture leaves the place empty; so does an empty path.
    void showFile(const QString& icoFile);
    [[nodiscard]] bool isEmpty() const { return m_picture.isNull(); }
    [[nodiscard]] QPixmap picture() const { return m_picture; }

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    QPixmap m_picture;
};

} // namespace orvanta
