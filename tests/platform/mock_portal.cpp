// A desktop's portal whose file dialogs nobody sees, for the tests. It grants "/granted/Mr.
// SaveFile", or whatever else was called; a dialog with the title "Cancel" is cancelled. Usage:
// mock_portal PROGRAM: runs it on the session's bus and ends with its exit status.
#include <QCoreApplication>
#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusObjectPath>
#include <QDBusVariant>
#include <QDBusVirtualObject>
#include <QProcess>
#include <QTimer>

namespace {

constexpr const char* kPortal = "/org/freedesktop/portal/desktop";
constexpr unsigned kVersion = 4;
constexpr unsigned kGranted = 0;
constexpr unsigned kCancelled = 1;

/// https://flatpak.github.io/xdg-desktop-portal/docs, org.freedesktop.portal.FileChooser.
class Portal : public QDBusVirtualObject {
 public:
  Portal() {
    // A program hears an answer from when it has read where that will come from: say it until then.
    QObject::connect(&again_, &QTimer::timeout, this, [this] { bus_.send(response_); });
  }

  QString introspect(const QString&) const override { return {}; }
  bool handleMessage(const QDBusMessage& message, const QDBusConnection& bus) override {
    if (message.interface() == "org.freedesktop.DBus.Properties")
      return bus.send(message.createReply(QVariant::fromValue(QDBusVariant(kVersion))));
    if (message.interface() != "org.freedesktop.portal.FileChooser") return false;
    const QString request = QString("%1/request/%2").arg(kPortal).arg(++requests_);
    response_ = QDBusMessage::createSignal(request, "org.freedesktop.portal.Request", "Response");
    const bool cancelled = message.arguments().value(1) == "Cancel";
    const QStringList granted("file:///granted/Mr. " + message.member());
    response_ << (cancelled ? kCancelled : kGranted) << QVariantMap{{"uris", granted}};
    again_.start(0);
    return bus.send(message.createReply(QVariant::fromValue(QDBusObjectPath(request))));
  }

 private:
  QDBusConnection bus_ = QDBusConnection::sessionBus();
  QDBusMessage response_;
  QTimer again_;
  int requests_ = 0;
};

}  // namespace

int main(int argc, char** argv) {
  QCoreApplication application(argc, argv);
  Portal portal;
  QDBusConnection bus = QDBusConnection::sessionBus();
  if (argc != 2 || !bus.registerVirtualObject(kPortal, &portal, QDBusConnection::SubPath) ||
      !bus.registerService("org.freedesktop.portal.Desktop"))
    return 2;
  QProcess program;
  program.setProcessChannelMode(QProcess::ForwardedChannels);
  QObject::connect(&program, &QProcess::finished, &application, &QCoreApplication::exit);
  program.start(argv[1], {});
  return QCoreApplication::exec();
}
