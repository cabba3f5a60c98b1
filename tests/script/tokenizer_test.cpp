#include "platform/script/scripterror.h"
#include "platform/script/tokenizer.h"

#include <gtest/gtest.h>

using namespace tarvello::script;

namespace {

Token bare(const char* text)
{
    return {QString::fromUtf8(text), false};
}

Token quoted(const char* text)
{
    return {QString::fromUtf8(text), true};
}

} // namespace

TEST(Tokenizer, SplitsWordsAndQuotedTexts)
{
    EXPECT_EQ(tokenize(u"  type\tTXT_AGENTE   \"A 001\"  "),
              QList<Token>({bare("type"), bare("TXT_AGENTE"), quoted("A 001")}));
    EXPECT_EQ(tokenize(u"answer customers C001 \"\""),
              QList<Token>({bare("answer"), bare("customers"), bare("C001"), quoted("")}));
    // Escapes stand for quote, backslash and line breaks inside quotes only.
    EXPECT_EQ(tokenize(uR"(exec "a \"b\" \\ c\r\nd")"),
              QList<Token>({bare("exec"), quoted("a \"b\" \\ c\r\nd")}));
    EXPECT_EQ(tokenize(uR"(key C:\path\n)"), QList<Token>({bare("key"), bare(R"(C:\path\n)")}));
    EXPECT_TRUE(tokenize(u"").isEmpty());
    EXPECT_TRUE(tokenize(u" \t ").isEmpty());
    EXPECT_TRUE(tokenize(u"   # expect text TXT_AGENTE \"A001\"").isEmpty());
    EXPECT_EQ(tokenize(u"select CBO_X #1"),
              QList<Token>({bare("select"), bare("CBO_X"), bare("#1")}));
}

TEST(Tokenizer, MalformedQuotingIsALineThatCannotBeUnderstood)
{
    for (const char16_t* line : {u"exec \"SELECT 1", u"exec \"ends in a backslash\\",
                                 uR"(exec "a \t b")", u"type TXT_A ab\"c\"", u"type TXT_A \"ab\"c"})
        EXPECT_THROW(tokenize(line), SyntaxError) << QString::fromUtf16(line).toStdString();
}

TEST(Tokenizer, UntokenizeWritesWordsThatReadBackTheSame)
{
    const QList<Token> words{bare("expect"), bare("cell"), quoted("SELECT 'a \"b\"'\\\r\n"),
                             quoted("")};
    EXPECT_EQ(tokenize(untokenize(words)), words);
}
