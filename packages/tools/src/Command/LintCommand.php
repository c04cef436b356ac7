<?php

declare(strict_types=1);

namespace Zorvel\Tools\Command;

use Symfony\Component\Console\Attribute\Argument;
use Symfony\Component\Console\Attribute\AsCommand;
use Symfony\Component\Console\Attribute\Option;
use Symfony\Component\Console\Command\Command;
use Symfony\Component\Console\Output\OutputInterface;
use Zorvel\Tools\Finding;
use Zorvel\Tools\Level;
use Zorvel\Tools\Linter;
use Zorvel\Tools\Report\Format;
use Zorvel\Tools\Template\Folders;
use Zorvel\Tools\Template\Selection;
use Zorvel\Tools\UsageError;

#[AsCommand('lint', 'Find the mistakes in templates', help: <<<'TEXT'
    Included files are looked for in the folders that are linted, or that the linted files are in,
    then in those of <info>--include-path</info>. The folders vendor and node_modules are left out, and those
    whose name begins with a dot.

    Exit status: 0 nothing was found, or warnings only; 1 a page is null, or <info>--strict</info> and there
    are warnings; 2 wrong usage.
    TEXT)]
final readonly class LintCommand
{
    /**
     * @param list<string> $path
     * @param list<string> $includePath
     */
    public function __invoke(
        OutputInterface $output,
        #[Argument('Templates, folders of templates, "-" for standard input')]
        array $path,
        #[Option('A further folder with files to include')]
        array $includePath = [],
        #[Option('text, json, github or checkstyle')]
        Format $format = Format::Text,
        #[Option('Count warnings for the exit status')]
        bool $strict = false,
        #[Option('The extensions of templates, separated by commas')]
        string $ext = 'tpl,html',
    ): int {
        $folders = new Folders([...Selection::foldersOf($path), ...$includePath], explode(',', $ext));
        $selection = new Selection($path, $folders);
        $findings = new Linter($folders)->lint($selection->templates());
        $findings = [...$selection->unreadable, ...$findings];
        if ($selection->count === 0 && $findings === []) {
            throw new UsageError('lint found no template; see zorvel lint --help');
        }
        $format->report()->write($findings, $selection->count, $output);
        $counted = $strict ? $findings : array_filter($findings, fn(Finding $finding): bool => $finding->level === Level::Error);

        return $counted === [] ? Command::SUCCESS : Command::FAILURE;
    }
}
