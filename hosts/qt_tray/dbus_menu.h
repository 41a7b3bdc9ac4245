// The tray menu as an object on the bus, for hosts that show it themselves.
#pragma once

#include <QDBusArgument>
#include <QDBusMessage>
#include <QDBusVariant>
#include <QDBusVirtualObject>
#include <QStringList>
#include <QVariant>
#include <functional>
#include <optional>
#include <vector>

#include "platform/tray.h"

namespace quillbox {

// What com.canonical.dbusmenu sends over the bus.

// (ia{sv}av): an item with what it opens.
struct MenuLayout {
  int Id = 0;
  QVariantMap Properties;
  QVariantList Children;
};

// (ia{sv})
struct MenuItemProperties {
  int Id = 0;
  QVariantMap Properties;
};

// (ias)
struct MenuItemNames {
  int Id = 0;
  QStringList Names;
};

// (isvu)
struct MenuEvent {
  int Id = 0;
  QString Event;
  QDBusVariant Data;
  uint Time = 0;
};

QDBusArgument& operator<<(QDBusArgument& out, const MenuLayout& value);
const QDBusArgument& operator>>(const QDBusArgument& in, MenuLayout& value);
QDBusArgument& operator<<(QDBusArgument& out, const MenuItemProperties& value);
const QDBusArgument& operator>>(const QDBusArgument& in, MenuItemProperties& value);
QDBusArgument& operator<<(QDBusArgument& out, const MenuItemNames& value);
const QDBusArgument& operator>>(const QDBusArgument& in, MenuItemNames& value);
QDBusArgument& operator<<(QDBusArgument& out, const MenuEvent& value);
const QDBusArgument& operator>>(const QDBusArgument& in, MenuEvent& value);

// Before any of them is sent or received.
void RegisterMenuTypes();

// The interface's description, in XML.
extern const char kMenuInterface[];

// Speaks com.canonical.dbusmenu. Hosts are told of a change when it is made, and of nothing else:
// some close an open menu whenever they hear that its layout is another one. A menu with items of
// the same kinds keeps its layout, whatever their captions are.
class DBusMenu : public QDBusVirtualObject {
 public:
  static constexpr char kPath[] = "/MenuBar";

  // `onChosen` gets a copy of the item that the person chooses, from the event loop; it may handle
  // events as long as it likes.
  explicit DBusMenu(std::function<void(const MenuItem&)> onChosen);

  void Show(const Menu& menu);

  QString introspect(const QString& path) const override;
  bool handleMessage(const QDBusMessage& call, const QDBusConnection& bus) override;

 private:
  // An item as hosts know it. A number never comes to stand for an item of another kind.
  struct Node {
    int Id = 0;
    MenuItem Item;  // without its Items
    std::vector<Node> Children;
  };
  struct Changes {
    std::vector<int> Items;
    std::vector<int> Layouts;  // of these items
  };

  Node NewNode(const MenuItem& item);
  void Change(Node& node, const Menu& wanted, Changes& changes);
  std::vector<const Node*> Nodes() const;
  const Node* Find(int id) const;
  void Happened(int id, const QString& event);
  QVariant Layout(const Node& node, int depth, const QStringList& names) const;
  QVariant PropertiesOfAll(const std::vector<int>& ids, const QStringList& names) const;

  // The methods that hosts call, with what they give.
  using Values = std::optional<QVariantList>;
  Values Answer(const QDBusMessage& call);
  Values GetLayout(const QVariantList& given);
  Values GetGroupProperties(const QVariantList& given);
  Values GetProperty(const QVariantList& given);
  Values Event(const QVariantList& given);
  Values EventGroup(const QVariantList& given);
  Values AboutToShow(const QVariantList& given);
  Values AboutToShowGroup(const QVariantList& given);
  Values Get(const QVariantList& given);
  Values GetAll(const QVariantList& given);

  std::function<void(const MenuItem&)> onChosen_;
  Node root_;
  int lastId_ = 0;
  uint revision_ = 1;
};

}  // namespace quillbox
