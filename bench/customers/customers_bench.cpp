// Customer database at shop scale: 100,000 customers and 150,000 vehicles in a temporary
// application folder. Measures search by name, the vehicle filter of one customer, the
// next customer number, the same search through the screen, and opening the customer screen
// (construct + load, offscreen). The search by name and the vehicle filter also run on a copy
// of the folder on a local server (/1; /0 is the file): goal under 20 ms there.

#include "bench_main.h"
#include "bench_server.h"
#include "common/quiet_messages.h"
#include "common/session.h"
#include "customers/customer_store.h"
#include "customers/frm_kokyaku.h"
#include "customers/setting_lists.h"

#include <QComboBox>
#include <QPushButton>
#include <QSqlDatabase>
#include <QSqlQuery>
#include <QTemporaryDir>
#include <benchmark/benchmark.h>
#include <cstdio>
#include <memory>

using namespace est;
using namespace est::customers;

namespace {

constexpr int kCustomers = 100000;
constexpr int kVehicles = 150000;

struct World
{
    QTemporaryDir folder;
    std::unique_ptr<CustomerStore> store;
    std::unique_ptr<CustomerStore> serverStore; // the same customers on a local server
    std::unique_ptr<SettingLists> settings;
    QStringList names;
    Session session;
    est::QuietMessages messages;
};

World *world = nullptr;

QString nameOf(int i)
{
    static const char *const family[] = {"佐藤", "鈴木", "高橋", "田中", "伊藤", "渡辺", "山本", "中村", "小林", "加藤"};
    // 10 family names x 10,007 numbered given names: every customer's name is different.
    return QString::fromUtf8(family[i % 10]) + QStringLiteral("　客%1").arg(i % 10007);
}

bool fill(QSqlDatabase db)
{
    QSqlQuery q(db);
    if (!q.exec(QStringLiteral("DELETE FROM Kokyaku_Syaryou")) || !q.exec(QStringLiteral("DELETE FROM Kokyaku_Jyouhou")))
        return false;
    if (!db.transaction())
        return false;
    QSqlQuery customer(db), vehicle(db);
    customer.prepare(QStringLiteral("INSERT INTO Kokyaku_Jyouhou (KNo, Namae, Post, Jyusyo1, TEL, KKubun, Memo) "
                                    "VALUES (?, ?, '100-0001', '東京都千代田区千代田9-9', '03-0000-0000', 0, '')"));
    vehicle.prepare(QStringLiteral("INSERT INTO Kokyaku_Syaryou (SNo, KNo, Meka, Syamei, Touroku, Soukou, IroNo) "
                                   "VALUES (?, ?, 'トヨタ', 'カローラ', '品川300さ12-34', '45200', '070')"));
    int sno = 0;
    for (int k = 1; k <= kCustomers; ++k) {
        customer.bindValue(0, QString::number(k));
        customer.bindValue(1, nameOf(k));
        if (!customer.exec())
            return false;
        const int count = (k % 2 == 0) ? 2 : 1; // 50,000 customers with two vehicles
        for (int n = 0; n < count && sno < kVehicles; ++n) {
            vehicle.bindValue(0, QString::number(++sno));
            vehicle.bindValue(1, QString::number(k));
            if (!vehicle.exec())
                return false;
        }
    }
    return db.commit() && q.exec(QStringLiteral("ANALYZE"));
}

CustomerStore &storeOf(const benchmark::State &state)
{
    return state.range(0) == 0 ? *world->store : *world->serverStore;
}

void BM_SearchByName(benchmark::State &state)
{
    CustomerStore &store = storeOf(state);
    int i = 0;
    for (auto _ : state) {
        const std::optional<Customer> c = store.findFirstByName(nameOf(1 + (i * 7919) % kCustomers));
        benchmark::DoNotOptimize(c);
        ++i;
    }
}
BENCHMARK(BM_SearchByName)->Arg(0)->Arg(1)->Unit(benchmark::kMicrosecond)->UseRealTime();

void BM_VehicleFilter(benchmark::State &state)
{
    CustomerStore &store = storeOf(state);
    int i = 0;
    for (auto _ : state) {
        const QList<Vehicle> list = store.vehiclesOf(QString::number(1 + (i * 7919) % kCustomers));
        benchmark::DoNotOptimize(list);
        ++i;
    }
}
BENCHMARK(BM_VehicleFilter)->Arg(0)->Arg(1)->Unit(benchmark::kMicrosecond)->UseRealTime();

void BM_NextCustomerNumber(benchmark::State &state)
{
    for (auto _ : state) {
        // Past 32767 there is no number; the query is the same either way.
        benchmark::DoNotOptimize(world->store->nextCustomerNumber());
    }
}
BENCHMARK(BM_NextCustomerNumber)->Unit(benchmark::kMicrosecond);

void BM_NextCustomerInOrder(benchmark::State &state)
{
    int i = 0;
    for (auto _ : state) {
        benchmark::DoNotOptimize(world->store->nextCustomer(QString::number(1 + (i * 7919) % kCustomers)));
        ++i;
    }
}
BENCHMARK(BM_NextCustomerInOrder)->Unit(benchmark::kMicrosecond);

void BM_SearchThroughScreen(benchmark::State &state)
{
    FrmKokyaku screen(world->session, world->messages, *world->store, *world->settings);
    auto *name = screen.findChild<QComboBox *>(QStringLiteral("cboKName"));
    auto *search = screen.findChild<QPushButton *>(QStringLiteral("cmdKensaku"));
    int i = 0;
    for (auto _ : state) {
        name->setEditText(nameOf(1 + (i * 7919) % kCustomers));
        search->click();
        ++i;
    }
}
BENCHMARK(BM_SearchThroughScreen)->Unit(benchmark::kMicrosecond);

void BM_OpenScreen(benchmark::State &state)
{
    for (auto _ : state) {
        FrmKokyaku screen(world->session, world->messages, *world->store, *world->settings);
        benchmark::DoNotOptimize(&screen);
    }
}
BENCHMARK(BM_OpenScreen)->Unit(benchmark::kMillisecond);

} // namespace

int main(int argc, char **argv)
{
    std::unique_ptr<World> w;
    est::bench::Hooks hooks;
    hooks.prepare = [&w] {
        w = std::make_unique<World>();
        world = w.get();
        QString error;
        w->store = CustomerStore::open(w->folder.path(), &error);
        if (w->store)
            w->settings = SettingLists::open(w->folder.path(), &error);
        if (!w->store || !w->settings || !fill(w->store->database())) {
            std::fprintf(stderr, "cannot prepare the customer database: %s\n", qPrintable(error));
            return false;
        }
        const QString connection = est::bench::serverCopyOf(w->folder.path());
        if (connection.isEmpty())
            return false;
        qputenv("ESTIMATE_DB", connection.toUtf8());
        w->serverStore = CustomerStore::open(w->folder.path(), &error);
        qunsetenv("ESTIMATE_DB");
        if (!w->serverStore) {
            std::fprintf(stderr, "cannot open the customers on the server: %s\n", qPrintable(error));
            return false;
        }
        return true;
    };
    hooks.finish = [&w] {
        if (w->messages.shown != 0)
            std::fprintf(stderr, "the screen reported %d messages\n", w->messages.shown);
        world = nullptr;
        w.reset();
        for (const QString &name : QSqlDatabase::connectionNames())
            QSqlDatabase::removeDatabase(name);
    };
    return est::bench::runBenchmarks(argc, argv, est::bench::App::Widgets, hooks);
}
