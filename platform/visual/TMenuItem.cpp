#include "visual/TMenuItem.h"

#include "visual/TAction.h"
#include "visual/TImageList.h"
#include "visual/TMenu.h"

#include <QSet>

#include <algorithm>
#include <utility>

TMenuItem::TMenuItem(QObject* owner)
    : TCommand(owner)
{
    connect(this, &QAction::triggered, this, [this] { Click(); });
    connect(this, &QAction::changed, this, [this] {
        if (FParent != nullptr)
            ++FParent->FRevision;
    });
}

TMenuItem::~TMenuItem()
{
    if (FParent != nullptr)
        FParent->Remove(this);
    Clear();
}

void TMenuItem::Insert(int index, TMenuItem* item)
{
    if (item->FParent != nullptr)
        item->FParent->Remove(item);
    index = std::clamp(index, 0, Count());
    FItems.insert(index, item);
    item->FParent = this;
    item->UpdateIcons();
    EntriesChanged();
    Q_EMIT ItemInserted(index, item);
}

void TMenuItem::Remove(TMenuItem* item)
{
    if (!FItems.removeOne(item))
        return;
    item->FParent = nullptr;
    EntriesChanged();
    Q_EMIT ItemRemoved(item);
}

void TMenuItem::EntriesChanged()
{
    ++FRevision;
    if (FParent != nullptr)
        ++FParent->FRevision;
}

void TMenuItem::Delete(int index)
{
    delete Items(index);
}

void TMenuItem::Clear()
{
    while (!FItems.isEmpty())
        delete FItems.last();
}

TMenuItem* TMenuItem::Find(const QString& caption) const
{
    const auto plain = StripHotkey(caption);
    const auto found = std::find_if(FItems.begin(), FItems.end(), [&plain](const TMenuItem* item) {
        return StripHotkey(item->Caption()).compare(plain, Qt::CaseInsensitive) == 0;
    });
    return found == FItems.end() ? nullptr : *found;
}

TMenuItem* TMenuItem::FindByName(const QString& name) const
{
    const auto found = std::find_if(FItems.begin(), FItems.end(),
        [&name](const TMenuItem* item) { return item->Name().compare(name, Qt::CaseInsensitive) == 0; });
    return found == FItems.end() ? nullptr : *found;
}

void TMenuItem::RethinkHotkeys()
{
    QSet<QChar> taken;
    for (const auto* item : FItems)
        taken << HotkeyOf(item->Caption());
    for (auto* item : FItems) {
        if (item->IsLine() || !item->Visible() || !HotkeyOf(item->Caption()).isNull())
            continue;
        const auto caption = item->Caption();
        const auto* letter = std::find_if(caption.begin(), caption.end(),
            [&taken](QChar c) { return c.isLetterOrNumber() && !taken.contains(c.toLower()); });
        if (letter == caption.end())
            continue;
        taken << letter->toLower();
        item->SetCaption(QString(caption).insert(letter - caption.begin(), u'&'));
    }
}

TMenu* TMenuItem::GetParentMenu() const
{
    const auto* item = this;
    while (item->FParent != nullptr)
        item = item->FParent;
    return item->FMenu;
}

TAction* TMenuItem::Action() const
{
    return FAction;
}

void TMenuItem::SetAction(TAction* action)
{
    if (action == FAction)
        return;
    disconnect(FActionLink);
    FAction = action;
    if (action == nullptr)
        return;
    FActionState = StateOf(*action);
    TakeOver(FActionState, nullptr);
    FActionLink = connect(action, &QAction::changed, this, [this] {
        const auto before = std::exchange(FActionState, StateOf(*FAction));
        TakeOver(FActionState, &before);
    });
}

TMenuItem::ActionState TMenuItem::StateOf(const TAction& action)
{
    return { action.Caption(), action.Hint(), action.ShortCut(), action.Checked(), action.Enabled(), action.Visible(),
        action.ImageIndex(), action.HelpContext() };
}

void TMenuItem::TakeOver(const ActionState& now, const ActionState* before)
{
    const auto differs = [&](auto member) { return before == nullptr || before->*member != now.*member; };
    if (differs(&ActionState::caption))
        SetCaption(now.caption);
    if (differs(&ActionState::hint))
        SetHint(now.hint);
    if (differs(&ActionState::shortCut))
        SetShortCut(now.shortCut);
    if (differs(&ActionState::checked))
        SetChecked(now.checked);
    if (differs(&ActionState::enabled))
        SetEnabled(now.enabled);
    if (differs(&ActionState::visible))
        SetVisible(now.visible);
    if (differs(&ActionState::imageIndex))
        SetImageIndex(now.imageIndex);
    if (differs(&ActionState::helpContext))
        SetHelpContext(now.helpContext);
}

void TMenuItem::SetRadioItem(bool radio)
{
    FRadioItem = radio;
    SetChecked(Checked());
}

void TMenuItem::SetChecked(bool checked)
{
    TCommand::SetChecked(checked);
    if (!checked || !FRadioItem || FParent == nullptr)
        return;
    for (auto* sibling : FParent->FItems) {
        if (sibling != this && sibling->FRadioItem && sibling->GroupIndex() == GroupIndex() && sibling->Checked())
            sibling->SetChecked(false);
    }
}

void TMenuItem::SetDefault(bool isDefault)
{
    if (isDefault && FParent != nullptr) {
        for (auto* sibling : FParent->FItems)
            sibling->FDefault = false;
    }
    FDefault = isDefault;
    Q_EMIT changed();
}

void TMenuItem::SetImageIndex(int index)
{
    TCommand::SetImageIndex(index);
    UpdateIcons();
}

void TMenuItem::SetBitmap(const TBitmap& bitmap)
{
    FBitmap = bitmap;
    UpdateIcons();
}

void TMenuItem::Click()
{
    if (!Enabled())
        return;
    if (OnClick) {
        // The item may be gone when the handler returns.
        const auto handler = OnClick;
        handler(this);
        return;
    }
    if (FAction)
        FAction->Execute(this);
}

void TMenuItem::UpdateIcons()
{
    const auto* menu = GetParentMenu();
    const auto* images = menu == nullptr ? nullptr : menu->Images();
    auto icon = images == nullptr ? QIcon() : images->Icon(ImageIndex());
    if (icon.isNull() && !FBitmap.Empty())
        icon = QIcon(QPixmap::fromImage(FBitmap.Masked()));
    if (!icon.isNull() || !QAction::icon().isNull())
        setIcon(icon);
    for (auto* item : FItems)
        item->UpdateIcons();
}

QString StripHotkey(const QString& caption)
{
    QString plain;
    plain.reserve(caption.size());
    for (qsizetype i = 0; i < caption.size(); ++i) {
        if (caption.at(i) == u'&' && ++i == caption.size())
            break;
        plain += caption.at(i);
    }
    return plain;
}

QChar HotkeyOf(const QString& caption)
{
    for (qsizetype i = 0; i + 1 < caption.size(); ++i) {
        if (caption.at(i) != u'&')
            continue;
        if (caption.at(++i) != u'&')
            return caption.at(i).toLower();
    }
    return {};
}
