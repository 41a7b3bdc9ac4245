#include "qt_tray/dbus_menu.h"

#include <QDBusConnection>
#include <QDBusMetaType>
#include <QList>
#include <algorithm>
#include <map>

#include "qt_base/unicode_text.h"
#include "text/text_list.h"

namespace quillbox {
namespace {

template <class... Fields>
QDBusArgument& Write(QDBusArgument& out, const Fields&... fields) {
  out.beginStructure();
  (out << ... << fields);
  out.endStructure();
  return out;
}

template <class... Fields>
const QDBusArgument& Read(const QDBusArgument& in, Fields&... fields) {
  in.beginStructure();
  (in >> ... >> fields);
  in.endStructure();
  return in;
}

}  // namespace

QDBusArgument& operator<<(QDBusArgument& out, const MenuLayout& v) {
  return Write(out, v.Id, v.Properties, v.Children);
}
const QDBusArgument& operator>>(const QDBusArgument& in, MenuLayout& v) {
  return Read(in, v.Id, v.Properties, v.Children);
}
QDBusArgument& operator<<(QDBusArgument& out, const MenuItemProperties& v) {
  return Write(out, v.Id, v.Properties);
}
const QDBusArgument& operator>>(const QDBusArgument& in, MenuItemProperties& v) {
  return Read(in, v.Id, v.Properties);
}
QDBusArgument& operator<<(QDBusArgument& out, const MenuItemNames& v) {
  return Write(out, v.Id, v.Names);
}
const QDBusArgument& operator>>(const QDBusArgument& in, MenuItemNames& v) {
  return Read(in, v.Id, v.Names);
}
QDBusArgument& operator<<(QDBusArgument& out, const MenuEvent& v) {
  return Write(out, v.Id, v.Event, v.Data, v.Time);
}
const QDBusArgument& operator>>(const QDBusArgument& in, MenuEvent& v) {
  return Read(in, v.Id, v.Event, v.Data, v.Time);
}

void RegisterMenuTypes() {
  qDBusRegisterMetaType<MenuLayout>();
  qDBusRegisterMetaType<MenuItemProperties>();
  qDBusRegisterMetaType<QList<MenuItemProperties>>();
  qDBusRegisterMetaType<MenuItemNames>();
  qDBusRegisterMetaType<QList<MenuItemNames>>();
  qDBusRegisterMetaType<MenuEvent>();
  qDBusRegisterMetaType<QList<MenuEvent>>();
}

const char kMenuInterface[] = R"xml(<interface name="com.canonical.dbusmenu">
  <property name="Version" type="u" access="read"/>
  <property name="TextDirection" type="s" access="read"/>
  <property name="Status" type="s" access="read"/>
  <property name="IconThemePath" type="as" access="read"/>
  <method name="GetLayout">
    <arg name="parentId" type="i" direction="in"/>
    <arg name="recursionDepth" type="i" direction="in"/>
    <arg name="propertyNames" type="as" direction="in"/>
    <arg name="revision" type="u" direction="out"/>
    <arg name="layout" type="(ia{sv}av)" direction="out"/>
  </method>
  <method name="GetGroupProperties">
    <arg name="ids" type="ai" direction="in"/>
    <arg name="propertyNames" type="as" direction="in"/>
    <arg name="properties" type="a(ia{sv})" direction="out"/>
  </method>
  <method name="GetProperty">
    <arg name="id" type="i" direction="in"/><arg name="name" type="s" direction="in"/>
    <arg name="value" type="v" direction="out"/>
  </method>
  <method name="Event">
    <arg name="id" type="i" direction="in"/><arg name="eventId" type="s" direction="in"/>
    <arg name="data" type="v" direction="in"/><arg name="timestamp" type="u" direction="in"/>
  </method>
  <method name="EventGroup">
    <arg name="events" type="a(isvu)" direction="in"/>
    <arg name="idErrors" type="ai" direction="out"/>
  </method>
  <method name="AboutToShow">
    <arg name="id" type="i" direction="in"/><arg name="needUpdate" type="b" direction="out"/>
  </method>
  <method name="AboutToShowGroup">
    <arg name="ids" type="ai" direction="in"/>
    <arg name="updatesNeeded" type="ai" direction="out"/>
    <arg name="idErrors" type="ai" direction="out"/>
  </method>
  <signal name="ItemsPropertiesUpdated">
    <arg name="updatedProps" type="a(ia{sv})"/><arg name="removedProps" type="a(ias)"/>
  </signal>
  <signal name="LayoutUpdated">
    <arg name="revision" type="u"/><arg name="parent" type="i"/>
  </signal>
</interface>
)xml";

namespace {

constexpr char kMenuName[] = "com.canonical.dbusmenu";

// Of the menu as a whole.
QVariantMap OwnProperties() {
  return {{"Version", 3U},
          {"TextDirection", "ltr"},
          {"Status", "normal"},
          {"IconThemePath", QStringList()}};
}

// "_" underlines a letter in a label. Only those of the given names, when there are any.
QVariantMap PropertiesOf(const MenuItem& item, const QStringList& names = {}) {
  QVariantMap properties;
  if (item.Separator) {
    properties = {{"type", "separator"}};
  } else {
    properties = {{"label", ToUnicode(Elided(item.Caption)).replace("_", "__")},
                  {"enabled", item.Enabled}};
  }
  if (item.Submenu) properties.insert("children-display", "submenu");
  if (names.isEmpty()) return properties;
  properties.removeIf([&](const auto& property) { return !names.contains(property.key()); });
  return properties;
}

MenuItem WithoutItems(const MenuItem& item) {
  MenuItem copy = item;
  copy.Items.clear();
  return copy;
}

QVariant NoNumbers() {
  return QVariant::fromValue(QList<int>());
}

// Nothing when there is no such value.
std::optional<QVariantList> Variant(const QVariant& value) {
  if (!value.isValid()) return std::nullopt;
  return QVariantList{QVariant::fromValue(QDBusVariant(value))};
}

QDBusMessage Signal(const char* name) {
  return QDBusMessage::createSignal(DBusMenu::kPath, kMenuName, name);
}

}  // namespace

DBusMenu::DBusMenu(std::function<void(const MenuItem&)> onChosen) : onChosen_(std::move(onChosen)) {
  root_.Item.Submenu = true;
  RegisterMenuTypes();
  QDBusConnection::sessionBus().registerVirtualObject(kPath, this);
}

DBusMenu::Node DBusMenu::NewNode(const MenuItem& item) {
  Node node{++lastId_, WithoutItems(item), {}};
  for (const MenuItem& child : item.Items) node.Children.push_back(NewNode(child));
  return node;
}

void DBusMenu::Show(const Menu& menu) {
  Changes changes;
  Change(root_, menu, changes);
  const QDBusConnection bus = QDBusConnection::sessionBus();
  if (!changes.Items.empty()) {
    bus.send(Signal("ItemsPropertiesUpdated")
             << PropertiesOfAll(changes.Items, {}) << QVariant::fromValue(QList<MenuItemNames>()));
  }
  for (const int id : changes.Layouts) bus.send(Signal("LayoutUpdated") << ++revision_ << id);
}

void DBusMenu::Change(Node& node, const Menu& wanted, Changes& changes) {
  const bool keepsLayout = std::equal(node.Children.begin(), node.Children.end(), wanted.begin(),
                                      wanted.end(), [](const Node& child, const MenuItem& item) {
                                        return child.Item.Submenu == item.Submenu &&
                                               child.Item.Separator == item.Separator;
                                      });
  if (!keepsLayout) {
    node.Children.clear();
    for (const MenuItem& item : wanted) node.Children.push_back(NewNode(item));
    changes.Layouts.push_back(node.Id);
    return;
  }
  for (std::size_t i = 0; i < wanted.size(); ++i) {
    Node& child = node.Children[i];
    if (PropertiesOf(child.Item) != PropertiesOf(wanted[i])) changes.Items.push_back(child.Id);
    child.Item = WithoutItems(wanted[i]);
    Change(child, wanted[i].Items, changes);
  }
}

std::vector<const DBusMenu::Node*> DBusMenu::Nodes() const {
  std::vector<const Node*> nodes = {&root_};
  for (std::size_t i = 0; i < nodes.size(); ++i) {
    const Node& node = *nodes[i];
    for (const Node& child : node.Children) nodes.push_back(&child);
  }
  return nodes;
}

const DBusMenu::Node* DBusMenu::Find(int id) const {
  const std::vector<const Node*> nodes = Nodes();
  const auto found =
      std::find_if(nodes.begin(), nodes.end(), [id](const Node* node) { return node->Id == id; });
  return found == nodes.end() ? nullptr : *found;
}

// The host gets its answer before what was chosen begins.
void DBusMenu::Happened(int id, const QString& event) {
  const Node* const node = Find(id);
  if (node == nullptr || event != "clicked" || !node->Item.Enabled || node->Item.Submenu) return;
  QMetaObject::invokeMethod(
      this, [this, item = node->Item] { onChosen_(item); }, Qt::QueuedConnection);
}

QVariant DBusMenu::Layout(const Node& node, int depth, const QStringList& names) const {
  MenuLayout layout{node.Id, PropertiesOf(node.Item, names), {}};
  for (const Node& child : node.Children) {
    if (depth != 0) layout.Children.append(Layout(child, depth - 1, names));
  }
  return QVariant::fromValue(layout);
}

QVariant DBusMenu::PropertiesOfAll(const std::vector<int>& ids, const QStringList& names) const {
  QList<MenuItemProperties> all;
  for (const int id : ids) {
    if (const Node* const node = Find(id)) all.append({id, PropertiesOf(node->Item, names)});
  }
  return QVariant::fromValue(all);
}

QString DBusMenu::introspect(const QString&) const {
  return kMenuInterface;
}

bool DBusMenu::handleMessage(const QDBusMessage& call, const QDBusConnection& bus) {
  const Values answer = Answer(call);
  return bus.send(answer
                      ? call.createReply(*answer)
                      : call.createErrorReply(QDBusError::InvalidArgs, "no such item or method"));
}

// The answer's arguments; nothing when the call can't be answered.
DBusMenu::Values DBusMenu::Answer(const QDBusMessage& call) {
  static const std::map<QString, Values (DBusMenu::*)(const QVariantList&)> kMethods = {
      {"GetLayout", &DBusMenu::GetLayout},
      {"GetGroupProperties", &DBusMenu::GetGroupProperties},
      {"GetProperty", &DBusMenu::GetProperty},
      {"Event", &DBusMenu::Event},
      {"EventGroup", &DBusMenu::EventGroup},
      {"AboutToShow", &DBusMenu::AboutToShow},
      {"AboutToShowGroup", &DBusMenu::AboutToShowGroup},
      {"Get", &DBusMenu::Get},
      {"GetAll", &DBusMenu::GetAll}};
  const auto method = kMethods.find(call.member());
  if (method == kMethods.end()) return std::nullopt;
  return (this->*method->second)(call.arguments());
}

DBusMenu::Values DBusMenu::GetLayout(const QVariantList& given) {
  const Node* const node = Find(given.value(0).toInt());
  if (node == nullptr) return std::nullopt;
  return {{revision_, Layout(*node, given.value(1).toInt(), given.value(2).toStringList())}};
}

DBusMenu::Values DBusMenu::GetGroupProperties(const QVariantList& given) {
  const auto ids = qdbus_cast<QList<int>>(given.value(0));
  const QStringList names = given.value(1).toStringList();
  std::vector<int> wanted(ids.begin(), ids.end());
  if (wanted.empty()) {
    for (const Node* const node : Nodes()) wanted.push_back(node->Id);
  }
  return {{PropertiesOfAll(wanted, names)}};
}

DBusMenu::Values DBusMenu::GetProperty(const QVariantList& given) {
  const Node* const node = Find(given.value(0).toInt());
  if (node == nullptr) return std::nullopt;
  return Variant(PropertiesOf(node->Item).value(given.value(1).toString()));
}

DBusMenu::Values DBusMenu::Event(const QVariantList& given) {
  Happened(given.value(0).toInt(), given.value(1).toString());
  return QVariantList();
}

DBusMenu::Values DBusMenu::EventGroup(const QVariantList& given) {
  for (const MenuEvent& event : qdbus_cast<QList<MenuEvent>>(given.value(0))) {
    Happened(event.Id, event.Event);
  }
  return {{NoNumbers()}};
}

// What hosts know is always what is.
DBusMenu::Values DBusMenu::AboutToShow(const QVariantList&) {
  return {{false}};
}
DBusMenu::Values DBusMenu::AboutToShowGroup(const QVariantList&) {
  return {{NoNumbers(), NoNumbers()}};
}

DBusMenu::Values DBusMenu::Get(const QVariantList& given) {
  return Variant(OwnProperties().value(given.value(1).toString()));
}
DBusMenu::Values DBusMenu::GetAll(const QVariantList&) {
  return {{OwnProperties()}};
}

}  // namespace quillbox
