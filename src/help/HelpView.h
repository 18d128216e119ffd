#pragma once

#include "help/HelpBook.h"

#include <QTextBrowser>

// Shows pages of the help book and follows their links within it. Nothing else is ever loaded: no file, no
// address, no picture.
class HelpView : public QTextBrowser {
    Q_OBJECT

public:
    // The book must outlive the view.
    explicit HelpView(const HelpBook& book, QWidget* parent = nullptr);

    void ShowPage(const std::string& key);
    std::string PageKey() const;

    void Zoom(int steps);  // 0: back to the size at the start
    // Marks the words wherever they stand on the page and shows the first place; empty: marks nothing.
    void MarkWords(const QString& words);

    QVariant loadResource(int type, const QUrl& name) override;

protected:
    void doSetSource(const QUrl& name, QTextDocument::ResourceType type) override;
    void changeEvent(QEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;

private:
    void FollowLink(const QUrl& link);
    void Render();
    void Dress();

    const HelpBook& m_book;
    QString m_words;
    int m_zoom = 0;
};
