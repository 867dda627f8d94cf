// The controls of the calculator page, where they stand and when they are there.
//
// The page has the formula field, a splitter, the result field and, below them, a container of
// fixed size with everything else.
#pragma once

#include <array>
#include <iterator>

#include "calculator/keypad.h"
#include "core/limits.h"
#include "layout/digit_count_layout.h"
#include "layout/font_form.h"
#include "layout/number_base_layout.h"
#include "layout/splitter_drag.h"
#include "shell/form_control.h"

namespace tallymere {

/// The client area as it is made.
inline constexpr LayoutSize CalculatorSize = {370, 355};

/// The container and its place in the page before the page is laid out.
inline constexpr LayoutRect CalculatorContainer = {0, 0, 370, 250};

enum CalculatorControl : int32_t {
    CalculatorFocusSink,  ///< takes the focus at each click of a key
    CalculatorFormula,
    CalculatorSplitter,
    CalculatorResult,
    CalculatorControlCount,
};

/// Sizes come with the layout of the page, see LayOutCalculator.
inline constexpr FormControl CalculatorForm[] = {
    {FormWindow, FormFocusSink, {}, nullptr},
    {FormWindow, FormMultilineField, {10, 10, 0, 0}, nullptr},
    {FormWindow, FormSplitter, {10, 0, 0, 4}, nullptr, nullptr, SplitterUpAndDown},
    {FormWindow, FormMultilineField, {10, 0, 0, 0}, nullptr},
};
static_assert(std::size(CalculatorForm) == CalculatorControlCount);

/// What formula and result are written in.
inline constexpr FontForm CalculatorFieldFont = {u"Verdana", 19};

/// A result that is not that of the formula shown; a valid one has the system's colour of text.
inline constexpr RgbColour StaleResultColour = {128, 128, 128};

/// The label of a slider's position; the others have the system's colour of text.
inline constexpr RgbColour CurrentLabelColour = {139, 0, 0};

enum ContainerControl : int32_t {
    ContainerTypeSlider,
    ContainerTypeUint,  ///< the labels are in the order of the slider's positions
    ContainerTypeRat,
    ContainerTypeReal,
    ContainerTypeCplx,
    ContainerPrecisionLabel,
    ContainerPrecision,
    ContainerAngleSlider,
    ContainerAngleDeg,  ///< likewise
    ContainerAngleRad,
    ContainerAngleGon,
    ContainerFirstKey,
    ContainerBracketMark = ContainerFirstKey + KeyCount,  ///< hidden at first
    ContainerDigitCount,
    ContainerNumberBase,
    ContainerCaseKey,
    ContainerControlCount,
};

/// The id of the case key's window.
inline constexpr int32_t CaseKeyId = 400'000;

inline constexpr int32_t LowestPrecision = 1;
inline constexpr int32_t HighestPrecision = MaxDigits;

constexpr LayoutRect KeyPlace(int32_t index) {
    return {10 + 39 * (index % KeyColumns), 38 + 26 * (index / KeyColumns), 38, 25};
}

/// The form of the container; keys get their captions from ViewOfKey.
constexpr std::array<FormControl, ContainerControlCount> MakeContainerForm() {
    using T = UiText;
    std::array<FormControl, ContainerControlCount> form = {};
    form[ContainerTypeSlider] = {FormWindow, FormSlider, {19, 15, 70, 21}, nullptr};
    form[ContainerTypeUint] = {FormWindow, FormStatic, {11, 0, 22, 15}, nullptr, u"uint"};
    form[ContainerTypeRat] = {FormWindow, FormStatic, {36, 0, 22, 15}, &T::TextCalcRat};
    form[ContainerTypeReal] = {FormWindow, FormStatic, {54, 0, 22, 15}, &T::TextCalcReal};
    form[ContainerTypeCplx] = {FormWindow, FormStatic, {81, 0, 25, 15}, &T::TextCalcCplx};
    form[ContainerPrecisionLabel] = {
        FormWindow, FormStatic, {115, 0, 70, 20}, &T::TextCalcPrecision};
    form[ContainerPrecision] = {FormWindow, FormNumericUpDown, {115, 16, 65, 19}, nullptr};
    form[ContainerAngleSlider] = {FormWindow, FormSlider, {203, 15, 55, 21}, nullptr};
    form[ContainerAngleDeg] = {FormWindow, FormStatic, {195, 0, 20, 15}, nullptr, u"deg"};
    form[ContainerAngleRad] = {FormWindow, FormStatic, {220, 0, 20, 15}, nullptr, u"rad"};
    form[ContainerAngleGon] = {FormWindow, FormStatic, {243, 0, 22, 15}, nullptr, u"gon"};
    for (int32_t i = 0; i < KeyCount; i++) {
        form[static_cast<size_t>(ContainerFirstKey + i)] = {FormWindow, FormPushButton, KeyPlace(i),
                                                            nullptr};
    }
    form[ContainerBracketMark] = {FormWindow, FormStatic, {345, 0, 40, 20}, nullptr, u"[ ]"};
    form[ContainerDigitCount] = {FormWindow,        FormDigitCount, {292, 0, 98, 35},
                                 &T::TextCtlDigits, nullptr,        DigitCountLabelAbove};
    form[ContainerNumberBase] = {FormWindow,
                                 FormNumberBase,
                                 {120, 0, NumberBaseSize.width, NumberBaseSize.height},
                                 &T::TextCalcOutputBase,
                                 nullptr,
                                 NumberBaseTwoLineLabel | NumberBaseOffersAll};
    form[ContainerCaseKey] = {FormWindow, FormPushButton, {210, 5, 38, 25}, nullptr, u"Aa"};
    return form;
}

inline constexpr std::array<FormControl, ContainerControlCount> ContainerForm = MakeContainerForm();

/// Whether a control of the container is there for a number type. The bracket mark, which shows
/// that the result lost a remainder, is there for all as far as this is concerned.
bool IsShownForType(ContainerControl control, NumberType type);

/// Whether a control of the container is disabled during a run, from its first moment.
bool IsDisabledDuringRun(ContainerControl control);

}  // namespace tallymere
