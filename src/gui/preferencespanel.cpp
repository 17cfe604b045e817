#include "gui/preferencespanel.h"

#include "app/pixelslider.h"
#include "gui/hintlabel.h"

#include <QButtonGroup>
#include <QCheckBox>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QFormLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QSignalBlocker>
#include <QSlider>
#include <QTabWidget>
#include <QVBoxLayout>

#include <array>

namespace {

constexpr std::array cacheSizes{0, 10, 50, 100, 200, 500, 1000}; // megabytes
constexpr int largestCache = 100'000; // megabytes
constexpr int sliderStep = 10; // pixels
constexpr int sliderPage = 100; // pixels
constexpr int betweenGroups = 12; // pixels

QLabel *heading(const QString &text)
{
    return new QLabel(QStringLiteral("<b>%1</b>").arg(text.toHtmlEscaped()));
}

struct TwoChoices {
    QButtonGroup *group;
    QRadioButton *first;
    QRadioButton *second;
};

TwoChoices addChoices(QVBoxLayout &column, const QString &title, const QString &first,
                      const QString &second)
{
    column.addWidget(heading(title));
    const TwoChoices choices{new QButtonGroup(column.parentWidget()), new QRadioButton(first),
                             new QRadioButton(second)};
    for (QRadioButton *button : {choices.first, choices.second}) {
        choices.group->addButton(button);
        column.addWidget(button);
    }
    return choices;
}

} // namespace

PreferencesPanel::PreferencesPanel(Engine &engine, QWidget *parent)
    : QDialog(parent)
    , mEngine(engine)
{
    setObjectName(QStringLiteral("preferencesPanel"));
    setWindowTitle(qtTrId("PreferencesTitle"));
    auto *tabs = new QTabWidget(this);
    tabs->setAccessibleName(windowTitle());
    tabs->addTab(artworkPage(), qtTrId("PreferencesArtwork"));
    tabs->addTab(filesPage(), qtTrId("PreferencesFiles"));
    tabs->addTab(sourcesPage(), qtTrId("PreferencesSources"));
    auto *buttons = new QDialogButtonBox(QDialogButtonBox::Close, this);
    QPushButton *defaults =
        buttons->addButton(qtTrId("PreferencesUseDefaults"), QDialogButtonBox::ResetRole);
    defaults->setAutoDefault(false); // Return must not reset anything
    buttons->button(QDialogButtonBox::Close)->setDefault(true);
    connect(defaults, &QPushButton::clicked, this, &PreferencesPanel::useDefaults);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::close);
    auto *column = new QVBoxLayout(this);
    column->addWidget(tabs);
    column->addWidget(buttons);
}

void PreferencesPanel::orderFrontPreferencesPanel()
{
    putValuesInInterface();
    show();
    raise();
    activateWindow();
}

QWidget *PreferencesPanel::artworkPage()
{
    auto *page = new QWidget;
    auto *column = new QVBoxLayout(page);
    auto *form = new QFormLayout;
    addSlider(*form, PixelSliders::minimumSize, qtTrId("PreferencesMinSize"));
    addSlider(*form, PixelSliders::maximumSize, qtTrId("PreferencesMaxSize"));
    addSlider(*form, PixelSliders::overwriteSize, qtTrId("PreferencesOverwriteSize"));
    column->addLayout(form);
    mNoteField = new HintLabel({});
    mNoteField->setObjectName(QStringLiteral("noteField"));
    // Its space is kept while it is empty, so that nothing jumps.
    mNoteField->setMinimumHeight(2 * mNoteField->fontMetrics().lineSpacing());
    mNoteField->setAlignment(Qt::AlignTop);
    column->addWidget(mNoteField);
    addCheckBox(*column, qtTrId("PreferencesIgnoreNonSquare"),
                QStringLiteral("ignoreNonSquareButton"), preferences::ignoreNonSquareArtwork);
    column->addStretch(1);
    return page;
}

void PreferencesPanel::addSlider(QFormLayout &form, const PixelSlider &slider, const QString &label)
{
    const QString name = QLatin1String(slider.name);
    auto *control = new QSlider(Qt::Horizontal);
    control->setObjectName(name + QStringLiteral("Slider"));
    control->setRange(slider.lowest, slider.highest);
    control->setSingleStep(sliderStep);
    control->setPageStep(sliderPage);
    control->setAccessibleName(QString(label).remove(u'&'));
    auto *field = new QLabel;
    field->setObjectName(name + QStringLiteral("Field"));
    field->setMinimumWidth(field->fontMetrics().horizontalAdvance(qtTrId("XPixels").arg(32767)));
    auto *row = new QHBoxLayout;
    row->addWidget(control, 1);
    row->addWidget(field);
    auto *title = new QLabel(label);
    title->setBuddy(control);
    form.addRow(title, row);

    QSettings &settings = mEngine.prefs.settings();
    const auto showText = [this, field, &slider, &settings] {
        field->setText(slider.text(settings));
        mNoteField->setText(noteOnPixels(settings));
    };
    connect(control, &QSlider::valueChanged, this, [&slider, &settings, showText](int position) {
        slider.store(position, settings);
        showText();
    });
    mFillControls.emplace_back([control, &slider, &settings, showText] {
        const QSignalBlocker noChange(control);
        control->setValue(slider.position(settings));
        showText();
    });
}

void PreferencesPanel::addCheckBox(QVBoxLayout &column, const QString &text, const QString &name,
                                   const Setting<bool> &setting)
{
    auto *box = new QCheckBox(text);
    box->setObjectName(name);
    column.addWidget(box);
    QSettings &settings = mEngine.prefs.settings();
    connect(box, &QCheckBox::clicked, this,
            [&setting, &settings](bool isOn) { setting.set(settings, isOn); });
    mFillControls.emplace_back(
        [box, &setting, &settings] { box->setChecked(setting.value(settings)); });
}

QWidget *PreferencesPanel::filesPage()
{
    auto *page = new QWidget;
    auto *column = new QVBoxLayout(page);
    PrefsController &prefs = mEngine.prefs;

    const auto dialect =
        addChoices(*column, qtTrId("PreferencesDialect"), qtTrId("PreferencesDialectStandard"),
                   qtTrId("PreferencesDialectClassic"));
    column->addWidget(new HintLabel(qtTrId("PreferencesDialectHint")));
    dialect.group->setObjectName(QStringLiteral("id3DialectMatrix"));
    connect(dialect.group, &QButtonGroup::buttonClicked, this,
            [&prefs, dialect] { prefs.setUsesStandardDialect(dialect.first->isChecked()); });
    mFillControls.emplace_back([&prefs, dialect] {
        (prefs.usesStandardDialect() ? dialect.first : dialect.second)->setChecked(true);
    });

    column->addSpacing(betweenGroups);
    const auto sizes = addChoices(*column, qtTrId("PreferencesV24Sizes"),
                                  qtTrId("PreferencesV24Plain"), qtTrId("PreferencesV24Accurate"));
    sizes.group->setObjectName(QStringLiteral("id3v24Matrix"));
    connect(sizes.group, &QButtonGroup::buttonClicked, this, [&prefs, sizes] {
        preferences::writeSpecCorrectID3v24.set(prefs.settings(), sizes.second->isChecked());
    });
    mFillControls.emplace_back([&prefs, sizes] {
        const bool isAccurate = preferences::writeSpecCorrectID3v24.value(prefs.settings());
        (isAccurate ? sizes.second : sizes.first)->setChecked(true);
    });

    column->addSpacing(betweenGroups);
    addCheckBox(*column, qtTrId("PreferencesKeepRefreshed"), QStringLiteral("iTunesUpdatedButton"),
                preferences::keepiTunesRefreshed);
    column->addStretch(1);
    return page;
}

QWidget *PreferencesPanel::sourcesPage()
{
    auto *page = new QWidget;
    auto *column = new QVBoxLayout(page);
    auto *form = new QFormLayout;
    PrefsController &prefs = mEngine.prefs;

    auto *cache = new QComboBox;
    cache->setObjectName(QStringLiteral("cacheComboBox"));
    cache->setEditable(true);
    cache->setValidator(new QIntValidator(0, largestCache, cache));
    for (const int megabytes : cacheSizes)
        cache->addItem(QString::number(megabytes));
    cache->setAccessibleName(qtTrId("PreferencesCache"));
    form->addRow(qtTrId("PreferencesCache"), cache);
    form->addRow(QString(), new HintLabel(qtTrId("PreferencesCacheHint")));
    const auto storeCache = [this, cache] {
        preferences::cacheSizeMB.set(mEngine.prefs.settings(), cache->currentText().toInt());
        mEngine.adoptCacheSize();
    };
    connect(cache, &QComboBox::activated, this, storeCache);
    connect(cache->lineEdit(), &QLineEdit::editingFinished, this, [cache, storeCache] {
        if (cache->lineEdit()->isModified()) // what was only looked at stays unset
            storeCache();
    });
    mFillControls.emplace_back([cache, &prefs] {
        cache->setCurrentText(QString::number(preferences::cacheSizeMB.value(prefs.settings())));
    });

    auto *key = new QLineEdit;
    key->setObjectName(QStringLiteral("acoustIDKeyField"));
    form->addRow(qtTrId("PreferencesAcoustIDKey"), key);
    form->addRow(QString(), new HintLabel(qtTrId("PreferencesAcoustIDHint")));
    connect(key, &QLineEdit::editingFinished, this, [key, &prefs] {
        if (key->isModified()) // it may come from the environment
            prefs.setAcoustIDKey(key->text());
    });
    mFillControls.emplace_back([key, &prefs] { key->setText(prefs.acoustIDKey()); });
    column->addLayout(form);

    column->addSpacing(betweenGroups);
    addCheckBox(*column, qtTrId("PreferencesUseDeezer"), QStringLiteral("useDeezerButton"),
                preferences::useDeezer);
    addCheckBox(*column, qtTrId("PreferencesSyncedLyrics"), QStringLiteral("syncedLyricsButton"),
                preferences::syncedLyrics);
    column->addStretch(1);
    return page;
}

void PreferencesPanel::putValuesInInterface()
{
    for (const auto &fill : mFillControls)
        fill();
}

void PreferencesPanel::useDefaults()
{
    mEngine.prefs.useDefaults();
    mEngine.adoptCacheSize();
    putValuesInInterface();
}
