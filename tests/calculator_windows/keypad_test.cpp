// The keys of the calculator as windows: what they show, how they are drawn, what a click does.
#include "calculator/keypad.h"

#include <algorithm>
#include <cstdlib>
#include <utility>

#include "calculator/windows/calculator_display.h"
#include "calculator/windows/calculator_run.h"
#include "calculator_windows/calculator_windows.h"
#include "support/number_types.h"
#include "toolkit/control_data.h"

namespace tallymere::testing_support {
namespace {

class KeypadWindows : public CalculatorWindowsTest {
protected:
    static KeyInfo Entry(int32_t index) {
        return KeypadEntry(index, StyleOfKeypad(settings, osVersionCode));
    }
    static void ClickKey(int32_t index) { Click(KeyWindow(index)); }
    static std::u16string Caption(int32_t index) { return WholeText(KeyWindow(index)); }
    static bool IsEnabled(int32_t index) { return IsWindowEnabled(KeyWindow(index)) != FALSE; }
};

TEST_F(KeypadWindows, CaptionsFollowTypeUnitAndCase) {
    for (const NumberType type : AllNumberTypes) {
        ChooseType(type);
        for (const AngleType angle : {AngleDegrees, AngleGon, AngleRadians}) {
            ChooseAngleUnit(angle);
            for (int32_t i = 0; i < KeyCount; i++) {
                ASSERT_EQ(Caption(i), Entry(i).caption) << i << ", type " << type;
            }
        }
        for (int presses = 0; presses < 2; presses++) {
            Click(ControlOf(ContainerCaseKey));
            for (int32_t i = 0; i < KeyCount; i++) {
                ASSERT_EQ(Caption(i), Entry(i).caption) << i << ", type " << type;
            }
        }
    }
    EXPECT_EQ(Caption(32), u"sin");
}

TEST_F(KeypadWindows, KeysWithoutActionAreDisabled) {
    for (const NumberType type : AllNumberTypes) {
        ChooseType(type);
        for (int32_t i = 0; i < KeyCount; i++) {
            const KeyAction action = Entry(i).action;
            const bool waitsForResult = action == ActionAns || action == ActionSwitchNotation ||
                                        action == ActionSwitchMixed;
            EXPECT_EQ(IsEnabled(i), action != ActionNone && !waitsForResult) << i;
        }
    }
}

int32_t messagesToKeys = 0;

LRESULT CountMessages(HWND, UINT, WPARAM, LPARAM, bool&) {
    messagesToKeys++;
    return 0;
}

TEST_F(KeypadWindows, KeysThatStayAsTheyAreGetNoMessage) {
    for (int32_t i = 0; i < KeyCount; i++) {
        SetControlHandler(KeyWindow(i), CountMessages);
    }
    messagesToKeys = 0;
    ShowKeys();
    EXPECT_EQ(messagesToKeys, 0);
    calculator.ansAvailable = true;
    ShowKeys();
    EXPECT_GT(messagesToKeys, 0);
    for (int32_t i = 0; i < KeyCount; i++) {
        SetControlHandler(KeyWindow(i), nullptr);
    }
}

TEST_F(KeypadWindows, KeysHaveTheirFonts) {
    for (const NumberType type : AllNumberTypes) {
        ChooseType(type);
        for (int32_t i = 0; i < KeyCount; i++) {
            LOGFONTW font = {};
            const auto handle =
                reinterpret_cast<HFONT>(SendMessageW(KeyWindow(i), WM_GETFONT, 0, 0));
            ASSERT_NE(GetObjectW(handle, sizeof font, &font), 0) << i;
            const FontForm& form = KeyFonts[Entry(i).font];
            EXPECT_EQ(std::wstring(font.lfFaceName), ToWide(form.name)) << i;
            EXPECT_EQ(std::abs(font.lfHeight), form.height) << i;
        }
    }
}

TEST_F(KeypadWindows, EveryKeyThatInsertsPutsItsTextAtTheCaret) {
    // Between them these have every key.
    for (const NumberType type : {NumberTypeUint, NumberTypeComplex}) {
        ChooseType(type);
        calculator.ansAvailable = true;
        for (int32_t i = 0; i < KeyCount; i++) {
            const std::u16string text =
                TextForAction(Entry(i).action, StyleOfKeypad(settings, osVersionCode)).text;
            if (text.empty()) {
                continue;
            }
            EnableWindow(KeyWindow(i), TRUE);
            SetFormula(u"12");
            SendMessageW(ControlOf(CalculatorFormula), EM_SETSEL, 1, 1);
            ClickKey(i);
            ASSERT_EQ(Formula(), u"1" + text + u"2") << i << ", type " << type;
        }
    }
}

TEST_F(KeypadWindows, KeysThatEditTheWholeFormula) {
    SetFormula(u"1+2");
    SendMessageW(ControlOf(CalculatorFormula), EM_SETSEL, 0, 1);
    Press(ActionBackspace);
    EXPECT_EQ(Formula(), u"1+");
    Press(ActionBracketFormula);
    EXPECT_EQ(Formula(), u"(1+)");
    Press(ActionClearFormula);
    EXPECT_EQ(Formula(), u"");
    Press(ActionBackspace);
    EXPECT_EQ(Formula(), u"");
    Press(ActionBracketFormula);
    EXPECT_EQ(Formula(), u"()");
}

TEST_F(KeypadWindows, ClearAllEmptiesBothFieldsAndHidesTheBracketMark) {
    SetFormula(u"7/2");
    SetWindowTextW(ControlOf(CalculatorResult), L"3");
    ShowControl(ControlOf(ContainerBracketMark), true);
    calculator.resultValid = calculator.ansAvailable = true;
    Press(ActionClearAll);
    EXPECT_EQ(Formula(), u"");
    EXPECT_EQ(WholeText(ControlOf(CalculatorResult)), u"");
    EXPECT_EQ(WindowStyle(ControlOf(ContainerBracketMark)) & WS_VISIBLE, 0u);
    EXPECT_FALSE(calculator.formulaTouched);
    EXPECT_FALSE(IsEnabled(KeyOfAction(ActionAns, NumberTypeReal)));
}

TEST_F(KeypadWindows, ClearFormulaLeavesTheResultField) {
    SetFormula(u"7/2");
    SetWindowTextW(ControlOf(CalculatorResult), L"3.5");
    Press(ActionClearFormula);
    EXPECT_EQ(WholeText(ControlOf(CalculatorResult)), u"3.5");
}

TEST_F(KeypadWindows, ClicksDoNothingWhileALateClickOnStopMayCome) {
    SetFormula(u"1");
    calculatorRun.states.phase = StopLingers;
    ClickKey(StopKey);
    EXPECT_EQ(Formula(), u"1");
    calculatorRun.states.phase = PageIdle;
}

// A key that is drawn into a white picture of its own.
class KeyPicture {
public:
    KeyPicture() {
        BITMAPINFO form = {};
        form.bmiHeader = {sizeof form.bmiHeader, Width, -Height, 1, 32, BI_RGB, 0, 0, 0, 0, 0};
        void* pixels = nullptr;
        bitmap_ = CreateDIBSection(dc, &form, DIB_RGB_COLORS, &pixels, nullptr, 0);
        pixels_ = static_cast<uint32_t*>(pixels);
        before_ = SelectObject(dc, bitmap_);
        std::fill_n(pixels_, Width * Height, White);
        SetTextColor(dc, RGB(1, 2, 3));
        SetBkColor(dc, RGB(4, 5, 6));
    }
    ~KeyPicture() {
        SelectObject(dc, before_);
        DeleteObject(bitmap_);
        DeleteDC(dc);
    }
    KeyPicture(const KeyPicture&) = delete;
    KeyPicture& operator=(const KeyPicture&) = delete;

    /// What the container answers when a control asks it.
    LRESULT Draw(HWND control, DWORD stage = CDDS_PREPAINT, UINT state = 0) {
        NMCUSTOMDRAW draw = {};
        draw.hdr = {control, static_cast<UINT_PTR>(GetDlgCtrlID(control)), UINT(NM_CUSTOMDRAW)};
        draw.dwDrawStage = stage;
        draw.uItemState = state;
        draw.hdc = dc;
        draw.rc = {Left, Top, Left + KeyWidth, Top + KeyHeight};
        return SendMessageW(calculatorWindows.container, WM_NOTIFY, draw.hdr.idFrom,
                            reinterpret_cast<LPARAM>(&draw));
    }

    /// The smallest rectangle with all ink, from the upper left corner of the key.
    RECT Ink() const {
        RECT ink = {Width, Height, -Width, -Height};
        for (int32_t i = 0; i < Width * Height; i++) {
            if ((pixels_[i] & White) != White) {
                const int32_t x = i % Width - Left;
                const int32_t y = i / Width - Top;
                ink = {std::min<LONG>(ink.left, x), std::min<LONG>(ink.top, y),
                       std::max<LONG>(ink.right, x + 1), std::max<LONG>(ink.bottom, y + 1)};
            }
        }
        return ink;
    }
    bool IsEmpty() const { return Ink().left == Width; }
    bool IsAllOf(const RgbColour& colour) const {
        const uint32_t ink =
            uint32_t{colour.red} << 16 | uint32_t{colour.green} << 8 | uint32_t{colour.blue};
        return std::all_of(pixels_, pixels_ + Width * Height, [ink](uint32_t pixel) {
            return (pixel & White) == White || (pixel & White) == ink;
        });
    }

    static constexpr int32_t KeyWidth = 60;
    static constexpr int32_t KeyHeight = 25;
    const HDC dc = CreateCompatibleDC(nullptr);

private:
    static constexpr int32_t Width = 100;
    static constexpr int32_t Height = 60;
    static constexpr int32_t Left = 20;
    static constexpr int32_t Top = 15;
    static constexpr uint32_t White = 0xFFFFFF;

    HBITMAP bitmap_;
    uint32_t* pixels_;
    HGDIOBJ before_;
};

// Gives a key its font without smoothing, so that no edge is lighter than the rest.
class HardEdges {
public:
    explicit HardEdges(HWND key)
        : key_(key), fontBefore_(reinterpret_cast<HFONT>(SendMessageW(key, WM_GETFONT, 0, 0))) {
        LOGFONTW form = {};
        GetObjectW(fontBefore_, sizeof form, &form);
        form.lfQuality = NONANTIALIASED_QUALITY;
        font_ = CreateFontIndirectW(&form);
        SendMessageW(key_, WM_SETFONT, reinterpret_cast<WPARAM>(font_), FALSE);
    }
    ~HardEdges() {
        SendMessageW(key_, WM_SETFONT, reinterpret_cast<WPARAM>(fontBefore_), FALSE);
        DeleteObject(font_);
    }
    HardEdges(const HardEdges&) = delete;
    HardEdges& operator=(const HardEdges&) = delete;

private:
    HWND key_;
    HFONT fontBefore_;
    HFONT font_;
};

TEST_F(KeypadWindows, EveryEnabledKeyIsDrawnInTheColourOfItsClass) {
    for (const NumberType type : AllNumberTypes) {
        ChooseType(type);
        for (int32_t i = 0; i < KeyCount; i++) {
            const HardEdges hard(KeyWindow(i));
            KeyPicture picture;
            const bool isEnabled = IsEnabled(i);
            EXPECT_EQ(picture.Draw(KeyWindow(i)), isEnabled ? CDRF_SKIPDEFAULT : CDRF_DODEFAULT)
                << i;
            EXPECT_EQ(picture.IsEmpty(), !isEnabled) << i;
            EXPECT_TRUE(picture.IsAllOf(KeyColours[Entry(i).colourClass])) << i;
        }
    }
}

TEST_F(KeypadWindows, OnlyKeysAreDrawnAndOnlyBeforeTheyArePainted) {
    KeyPicture picture;
    for (const DWORD stage : {CDDS_PREERASE, CDDS_POSTERASE, CDDS_POSTPAINT}) {
        EXPECT_EQ(picture.Draw(KeyWindow(2), stage), CDRF_DODEFAULT);
    }
    for (const ContainerControl control :
         {ContainerTypeSlider, ContainerCaseKey, ContainerAngleSlider, ContainerPrecision}) {
        EXPECT_EQ(picture.Draw(ControlOf(control)), CDRF_DODEFAULT);
    }
    EXPECT_TRUE(picture.IsEmpty());
}

RECT InkOf(HWND key, UINT state = 0) {
    KeyPicture picture;
    picture.Draw(key, CDDS_PREPAINT, state);
    return picture.Ink();
}

TEST_F(KeypadWindows, CaptionsAreAlignedAsTheKeyWithThreePixelsBesideThem) {
    const HWND key = KeyWindow(KeyOfAction(ActionMod, NumberTypeReal));
    const uint32_t style = WindowStyle(key);
    const auto draw = [key, style](uint32_t alignment) {
        SetWindowLongW(key, GWL_STYLE, static_cast<LONG>(style | alignment));
        const RECT ink = InkOf(key);
        SetWindowLongW(key, GWL_STYLE, static_cast<LONG>(style));
        return ink;
    };
    // A letter may have a blank column of its own.
    EXPECT_GE(draw(BS_LEFT).left, 3);
    EXPECT_LE(draw(BS_LEFT).left, 5);
    EXPECT_LE(draw(BS_RIGHT).right, KeyPicture::KeyWidth - 3);
    EXPECT_GE(draw(BS_RIGHT).right, KeyPicture::KeyWidth - 5);
    for (const uint32_t alignment : {0u, uint32_t{BS_CENTER}}) {
        const RECT ink = draw(alignment);
        EXPECT_NEAR(ink.left, KeyPicture::KeyWidth - ink.right, 2);
        EXPECT_NEAR(ink.top, KeyPicture::KeyHeight - ink.bottom, 5);
    }
}

TEST_F(KeypadWindows, CaptionsAreDrawnInTheFontOfTheKey) {
    const HWND key = KeyWindow(KeyOfAction(ActionMod, NumberTypeReal));
    const LRESULT font = SendMessageW(key, WM_GETFONT, 0, 0);
    const RECT ink = InkOf(key);
    const HWND arrow = KeyWindow(KeyOfAction(ActionBackspace, NumberTypeReal));
    SendMessageW(key, WM_SETFONT, static_cast<WPARAM>(SendMessageW(arrow, WM_GETFONT, 0, 0)),
                 FALSE);
    const RECT larger = InkOf(key);
    SendMessageW(key, WM_SETFONT, static_cast<WPARAM>(font), FALSE);
    EXPECT_GT(larger.bottom - larger.top, ink.bottom - ink.top);
}

TEST_F(KeypadWindows, TheFocusIsShownAroundTheCaptionWhereTheKeyboardIsUsed) {
    const HWND key = KeyWindow(KeyOfAction(ActionMod, NumberTypeReal));
    EXPECT_GT(InkOf(key).left, 3);
    EXPECT_EQ(InkOf(key, CDIS_FOCUS).left, InkOf(key).left);
    EXPECT_EQ(InkOf(key, CDIS_SHOWKEYBOARDCUES).left, InkOf(key).left);
    const RECT focus = InkOf(key, CDIS_FOCUS | CDIS_SHOWKEYBOARDCUES);
    EXPECT_EQ(focus.left, 3);
    EXPECT_EQ(focus.right, KeyPicture::KeyWidth - 3);
    EXPECT_EQ(focus.bottom, KeyPicture::KeyHeight);
}

TEST_F(KeypadWindows, DrawingLeavesThePictureAsItWasSet) {
    KeyPicture picture;
    SetBkMode(picture.dc, OPAQUE);
    const HGDIOBJ font = GetCurrentObject(picture.dc, OBJ_FONT);
    picture.Draw(KeyWindow(2));
    EXPECT_EQ(GetTextColor(picture.dc), RGB(1, 2, 3));
    EXPECT_EQ(GetBkMode(picture.dc), OPAQUE);
    EXPECT_EQ(GetCurrentObject(picture.dc, OBJ_FONT), font);
}

}  // namespace
}  // namespace tallymere::testing_support
