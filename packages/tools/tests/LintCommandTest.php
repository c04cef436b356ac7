<?php

declare(strict_types=1);

namespace Zorvel\Tools\Tests;

use PHPUnit\Framework\Attributes\DataProvider;
use Zorvel\Tools\Rule\Rules;
use Zorvel\Tools\Template\Folders;
use Zorvel\Tools\Template\Includes;
use Zorvel\Tools\Template\Template;

final class LintCommandTest extends ToolsTestCase
{
    private const string OPEN = ":1:1: error: Missing closing tag; {/optional} has to follow, in the same file [unclosed-section]\n";

    /** @return iterable<string, array{string, int, string, string}> */
    public static function calls(): iterable
    {
        yield 'well' => ['good.tpl', 0, "0 errors and 0 warnings in 1 template\n", ''];
        yield 'a warning' => ['odd', 0, "odd/x.tpl:1:1: warning: There is no file no.tpl in odd: correct the name, or name its folder with"
            . " --include-path [missing-include]\n0 errors and 1 warning in 1 template\n", ''];
        yield 'a warning that counts' => ['odd --strict --format github', 1, '::warning file=odd/x.tpl,line=1,col=1,title=missing-include'
            . "::There is no file no.tpl in odd: correct the name, or name its folder with --include-path\n", ''];
        yield 'a further folder' => ['odd --strict --include-path more', 0, "0 errors and 0 warnings in 1 template\n", ''];
        yield 'a folder, in part' => ['bad', 1, 'bad/a.html' . self::OPEN . 'bad/in/b.tpl' . self::OPEN . "2 errors and 0 warnings in 2 templates\n", ''];
        yield 'another extension' => ['bad --ext txt,htm', 1, 'bad/c.txt' . self::OPEN . "1 error and 0 warnings in 1 template\n", ''];
        yield 'a file of any name' => ['bad/c.txt', 1, 'bad/c.txt' . self::OPEN . "1 error and 0 warnings in 1 template\n", ''];
        yield 'a file twice' => ['bad/c.txt bad/c.txt', 1, 'bad/c.txt' . self::OPEN . "1 error and 0 warnings in 1 template\n", ''];
        yield 'what cannot be read' => ['lost good.tpl', 1, "lost/lost.tpl:1:1: error: This cannot be read: give permission, or leave it out"
            . " [unreadable]\n1 error and 0 warnings in 2 templates\n", ''];
        yield 'standard input' => ['-', 1, '(standard input)' . self::OPEN . "1 error and 0 warnings in 1 template\n", ''];
        yield 'an address' => ['remote.tpl', 0, "0 errors and 0 warnings in 1 template\n", ''];
        yield 'sample data' => ['good.tpl --data marked.json', 0, "0 errors and 0 warnings in 1 template\n", ''];
        yield 'other sample data' => ['good.tpl --data other.json', 0, "good.tpl:1:1: warning: x names nothing, and there is no default"
            . " [silent-tag]\n0 errors and 1 warning in 1 template\n", ''];
        yield 'sample data that is none' => ['good.tpl --data good.tpl', 2, '', "zorvel: good.tpl is not valid JSON: Syntax error\n"];
        yield 'no sample data' => ['good.tpl --data none.json', 2, '', "zorvel: cannot read none.json\n"];
        yield 'sample data and parts of a page' => ['pages --data other.json', 0, "0 errors and 0 warnings in 2 templates\n", ''];
        yield 'no such folder' => ['odd --include-path none', 2, '', "zorvel: no such file or folder: none\n"];
        yield 'no such file' => ['none.tpl', 2, '', "zorvel: no such file or folder: none.tpl\n"];
        yield 'no template' => ['empty', 2, '', "zorvel: lint found no template; see zorvel lint --help\n"];
        yield 'no path' => ['', 2, '', "zorvel: Not enough arguments (missing: \"path\").\n"];
        yield 'an unknown option' => ['--nope .', 2, '', "zorvel: The \"--nope\" option does not exist.\n"];
        yield 'an unknown command' => ['--format xml .', 2, '', 'zorvel: The value "xml" is not valid for the "format" option.'
            . " Supported values are \"text\", \"json\", \"github\", \"checkstyle\".\n"];
    }

    #[DataProvider('calls')]
    public function testTellsWhatItFoundAndHowItWent(string $words, int $status, string $output, string $errors): void
    {
        $open = array_fill_keys(['bad/a.html', 'bad/in/b.tpl', 'bad/c.txt', 'bad/vendor/d.tpl', 'bad/in/node_modules/e.tpl', 'bad/.f/g.tpl'], '{optional x}');
        $this->write($open + ['good.tpl' => '{x}', 'odd/x.tpl' => '{include no.tpl}', 'more/no.tpl' => '']);
        $this->write(['marked.json' => "\u{FEFF}{\"x\": 1}", 'other.json' => '{"y": 1, "l": [1]}', 'remote.tpl' => '{include data:text/plain,{optional x}}']);
        $this->write(['pages/a.tpl' => '{y}{dynamic l}{include part.tpl}{/dynamic}', 'pages/part.tpl' => '{*}']);
        symlink('.', 'bad/itself');
        array_map(mkdir(...), ['empty', 'lost']);
        symlink('nowhere', 'lost/lost.tpl');

        self::assertSame([$status, $output, $errors], $this->zorvel(['lint', ...preg_split('/ /', $words, -1, PREG_SPLIT_NO_EMPTY) ?: []], '{optional x}'));
    }

    /** Root may read every folder, and steps down for as long. */
    public function testPassesOverAFolderThatCannotBeRead(): void
    {
        $this->write(['a.tpl' => '', 'locked/b.tpl' => '', 'z.tpl' => '']);
        chmod('locked', 0);
        $folders = new Folders(['.'], ['tpl']);
        $rules = new Rules($folders, new Includes($folders));
        $isRoot = posix_getuid() === 0 && posix_seteuid(65534);
        $files = $folders->templatesAt('.');
        $findings = iterator_to_array($rules->findings(Template::fromFile($files[1])));
        $isRoot && posix_seteuid(0);
        chmod('locked', 0o700);

        self::assertSame([['a.tpl', 'locked', 'z.tpl'], ['unreadable']], [$files, array_column($findings, 'rule')]);
    }

    public function testFindsNothingInTheExamples(): void
    {
        $root = dirname(__DIR__, 3);
        $folders = ['examples/pages/*', 'examples/playground/public', 'examples/shop/templates', 'bench/templates/zorvel'];
        $folders = array_merge(...array_map(fn(string $folder): array => glob("$root/$folder", GLOB_ONLYDIR) ?: [], $folders));
        [$status, $output] = $this->zorvel(['lint', '--strict', ...$folders]);

        self::assertSame(0, $status, $output);
        self::assertGreaterThan(10, (int) strrchr(strstr($output, ' templates', true) ?: '', ' '));
    }

    public function testDoesWhatItsDocumentSays(): void
    {
        ['lint' => $lint, 'render' => $render] = new Document('packages/tools/README.md')->blocks();
        $this->write(['page.tpl' => $lint['zorvel page.tpl']]);

        self::assertSame([1, "$lint[text]\n", ''], $this->zorvel(['lint', 'page.tpl']));
        self::assertSame([1, '', "$render[text]\n"], $this->zorvel(['render', 'page.tpl']));
    }

    public function testSaysItsVersionAndThatTheExtensionIsMissing(): void
    {
        [$status, $version] = $this->zorvel(['--version']);
        self::assertSame(0, $status);
        self::assertMatchesRegularExpression('/^zorvel \S+, extension ' . preg_quote((string) phpversion('zorvel')) . '\n$/', $version);

        $this->write(['a.tpl' => '']);
        $error = "zorvel: the extension is not loaded; try php -d extension=zorvel vendor/bin/zorvel\n";
        self::assertSame([2, '', $error], $this->zorvel(['lint', 'a.tpl'], withExtension: false));
        self::assertSame(0, $this->zorvel(['lint', '--help'], withExtension: false)[0]);
    }
}
