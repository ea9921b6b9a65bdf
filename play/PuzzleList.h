#pragma once

#include <QAbstractListModel>
#include <QIcon>
#include <QListView>
#include <filesystem>
#include <vector>

/// A puzzle that can be chosen.
struct PuzzleEntry {
  QString key;                 ///< stem of its file, as text
  QString title;               ///< shown under its icon
  QIcon icon;                  ///< shared among entries that look alike
  std::filesystem::path file;  ///< its real name in its folder
};

/// The puzzles of one list, set all at once: tens of thousands cost a view nothing before they are
/// seen.
class PuzzleModel : public QAbstractListModel {
 public:
  using QAbstractListModel::QAbstractListModel;

  void fill(std::vector<PuzzleEntry> entries);
  const PuzzleEntry& entry(const QModelIndex& index) const;

  int rowCount(const QModelIndex& parent = {}) const override;
  QVariant data(const QModelIndex& index, int role) const override;

 private:
  std::vector<PuzzleEntry> entries_;
};

/// Puzzles as pictures of 32 x 32 with their titles below, in as many columns as there is room for.
/// One of them is always selected, unless there are none.
class PuzzleList : public QListView {
 public:
  PuzzleList(QWidget* parent, const QString& name);

  /// Takes the entries over and selects the first one.
  void fill(std::vector<PuzzleEntry> entries);
  int count() const { return model_->rowCount(); }
  /// The selected entry, or null when there are none.
  const PuzzleEntry* selected() const;

 protected:
  QItemSelectionModel::SelectionFlags selectionCommand(const QModelIndex& index,
                                                       const QEvent* event) const override;
  void currentChanged(const QModelIndex& current, const QModelIndex& previous) override;
  void resizeEvent(QResizeEvent* event) override;

 private:
  QSize entrySize() const;
  void shareWidth();

  PuzzleModel* model_;
};

/// The picture of a puzzle's icon key, its mask colour RGB(192, 192, 192) made transparent.
QIcon chooserIcon(const QString& key);
