#include "windows/editstepform.h"

#include "formats/metasong.h"
#include "windows/filechooser.h"

#include "ui_editstepform.h"

#include <QDir>

#include <algorithm>
#include <array>
#include <utility>

namespace
{

constexpr std::array caseLanguages{QLocale::Italian, QLocale::English, QLocale::German,
                                   QLocale::French,  QLocale::Spanish, QLocale::Portuguese,
                                   QLocale::Dutch,   QLocale::Polish,  QLocale::Turkish,
                                   QLocale::Greek,   QLocale::Russian, QLocale::Ukrainian};

EditStep::Field fieldOf(const QComboBox *combo)
{
    return static_cast<EditStep::Field>(combo->currentData().toInt());
}

} // namespace

EditStepForm::EditStepForm(Kind kind, QWidget *parent)
    : QWidget(parent)
    , ui(new Ui::EditStepForm)
    , m_kind(kind)
{
    ui->setupUi(this);
    m_list.problem = tr("non è scelto nessun elenco");
    fillIn();
    showRows();
    connectFields();
}

EditStepForm::~EditStepForm() = default;

QString EditStepForm::kindName(Kind kind)
{
    switch (kind) {
    case Kind::FromName:
        return tr("Dal nome del file");
    case Kind::Value:
        return tr("Un valore per tutte");
    case Kind::Replace:
        return tr("Cerca e sostituisci");
    case Kind::LetterCase:
        return tr("Maiuscole e minuscole");
    case Kind::Strip:
        return tr("Togli spazi e \"_\"");
    case Kind::Swap:
        return tr("Scambia due campi");
    case Kind::FromList:
        return tr("Da un elenco CSV");
    }
    return {};
}

void EditStepForm::fillIn()
{
    // Completion would write the rest of a pattern over what the user types.
    ui->patternComboBox->setCompleter(nullptr);
    ui->valueComboBox->setCompleter(nullptr);
    ui->patternComboBox->addItems(
        {QStringLiteral("%artist - %title"), QStringLiteral("%track - %artist - %title"),
         QStringLiteral("%track - %title"), QStringLiteral("%title"),
         QStringLiteral("%artist/%title"), QStringLiteral("%genre/%artist/%title")});
    for (const EditStep::Field field : songfields::all()) {
        ui->fieldComboBox->addItem(ChangePreview::fieldName(field), static_cast<int>(field));
        ui->otherFieldComboBox->addItem(ChangePreview::fieldName(field), static_cast<int>(field));
    }
    ui->otherFieldComboBox->setCurrentIndex(1);
    for (const QLocale::Language language : caseLanguages) {
        ui->languageComboBox->addItem(QLocale(language).nativeLanguageName(),
                                      static_cast<int>(language));
        if (language == QLocale().language())
            ui->languageComboBox->setCurrentIndex(ui->languageComboBox->count() - 1);
    }
    offerValues();
}

/** Shows the rows of this kind alone. */
void EditStepForm::showRows()
{
    const auto show = [this](QWidget *field, std::initializer_list<Kind> owners) {
        ui->formLayout->setRowVisible(field, std::find(owners.begin(), owners.end(), m_kind) !=
                                                 owners.end());
    };
    const auto showLayout = [this](QLayout *fields, std::initializer_list<Kind> owners) {
        ui->formLayout->setRowVisible(fields, std::find(owners.begin(), owners.end(), m_kind) !=
                                                  owners.end());
    };
    show(ui->patternComboBox, {Kind::FromName});
    show(ui->fieldComboBox, {Kind::Value, Kind::Swap});
    show(ui->otherFieldComboBox, {Kind::Swap});
    show(ui->valueComboBox, {Kind::Value});
    show(ui->fromLineEdit, {Kind::Replace});
    show(ui->toLineEdit, {Kind::Replace});
    showLayout(ui->optionsLayout, {Kind::Replace});
    show(ui->kindComboBox, {Kind::LetterCase});
    show(ui->languageComboBox, {Kind::LetterCase});
    show(ui->underscoresCheckBox, {Kind::Strip});
    showLayout(ui->fieldsLayout, {Kind::Replace, Kind::LetterCase, Kind::Strip});
    showLayout(ui->listLayout, {Kind::FromList});
}

void EditStepForm::connectFields()
{
    connect(ui->fieldComboBox, &QComboBox::currentIndexChanged, this, [this] {
        offerValues();
        emit changed();
    });
    for (const QComboBox *combo : {ui->patternComboBox, ui->valueComboBox})
        connect(combo, &QComboBox::editTextChanged, this, &EditStepForm::changed);
    for (const QComboBox *combo : {ui->otherFieldComboBox, ui->kindComboBox, ui->languageComboBox})
        connect(combo, &QComboBox::currentIndexChanged, this, &EditStepForm::changed);
    for (const QLineEdit *edit : {ui->fromLineEdit, ui->toLineEdit})
        connect(edit, &QLineEdit::textChanged, this, &EditStepForm::changed);
    for (const QCheckBox *box :
         {ui->regexCheckBox, ui->caseCheckBox, ui->underscoresCheckBox, ui->titleCheckBox,
          ui->artistCheckBox, ui->genreCheckBox, ui->authorCheckBox})
        connect(box, &QCheckBox::toggled, this, &EditStepForm::changed);
    connect(ui->browsePushButton, &QPushButton::clicked, this, &EditStepForm::browse);
}

/** The keys that a song can have are offered; everything else is typed. */
void EditStepForm::offerValues()
{
    const QSignalBlocker blocker(ui->valueComboBox);
    const QString text = ui->valueComboBox->currentText();
    ui->valueComboBox->clear();
    if (fieldOf(ui->fieldComboBox) == EditStep::Field::Key)
        ui->valueComboBox->addItems(MetaSong::getKeysList());
    ui->valueComboBox->setEditText(text);
}

QList<QWidget *> EditStepForm::tabStops() const
{
    return {ui->patternComboBox, ui->fieldComboBox,    ui->otherFieldComboBox,  ui->valueComboBox,
            ui->fromLineEdit,    ui->toLineEdit,       ui->regexCheckBox,       ui->caseCheckBox,
            ui->kindComboBox,    ui->languageComboBox, ui->underscoresCheckBox, ui->titleCheckBox,
            ui->artistCheckBox,  ui->genreCheckBox,    ui->authorCheckBox,      ui->listLineEdit,
            ui->browsePushButton};
}

QList<EditStep::Field> EditStepForm::chosenFields() const
{
    const std::array boxes{std::pair(ui->titleCheckBox, EditStep::Field::Title),
                           std::pair(ui->artistCheckBox, EditStep::Field::Artist),
                           std::pair(ui->genreCheckBox, EditStep::Field::Genre),
                           std::pair(ui->authorCheckBox, EditStep::Field::Author)};
    QList<EditStep::Field> fields;
    for (const auto &[box, field] : boxes) {
        if (box->isChecked())
            fields.append(field);
    }
    return fields;
}

EditStep EditStepForm::step() const
{
    switch (m_kind) {
    case Kind::FromName:
        return EditStep(EditStep::FromName{ui->patternComboBox->currentText()});
    case Kind::Value:
        return EditStep(
            EditStep::Value{fieldOf(ui->fieldComboBox), ui->valueComboBox->currentText()});
    case Kind::Replace:
        return EditStep(EditStep::Replace{chosenFields(), ui->fromLineEdit->text(),
                                          ui->toLineEdit->text(), ui->regexCheckBox->isChecked(),
                                          ui->caseCheckBox->isChecked()});
    case Kind::LetterCase:
        return EditStep(EditStep::LetterCase{
            chosenFields(),
            static_cast<EditStep::LetterCase::Kind>(ui->kindComboBox->currentIndex()),
            QLocale(static_cast<QLocale::Language>(ui->languageComboBox->currentData().toInt()))});
    case Kind::Strip:
        return EditStep(EditStep::Strip{chosenFields(), ui->underscoresCheckBox->isChecked()});
    case Kind::Swap:
        return EditStep(
            EditStep::Swap{fieldOf(ui->fieldComboBox), fieldOf(ui->otherFieldComboBox)});
    case Kind::FromList:
        break;
    }
    return EditStep(EditStep::FromList{m_list});
}

void EditStepForm::browse()
{
    const QString path =
        filechooser::openFile(this, tr("Scegli l'elenco"), QDir::homePath(),
                              {tr("Elenchi (*.csv *.txt *.tsv)"), tr("Tutti i file (*)")});
    if (!path.isEmpty())
        setList(path);
}

void EditStepForm::setList(const QString &path)
{
    ui->listLineEdit->setText(QDir::toNativeSeparators(path));
    m_list = CsvList::fromFile(path);
    emit changed();
}
