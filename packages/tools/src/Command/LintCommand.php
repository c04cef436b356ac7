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
use Zorvel\Tools\Template\Template;
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
        #[Option('Sample data, a JSON file: find what comes to nothing with it')]
        ?string $data = null,
        #[Option('text, json, github or checkstyle')]
        Format $format = Format::Text,
        #[Option('Count warnings for the exit status')]
        bool $strict = false,
        #[Option('The extensions of templates, separated by commas')]
        string $ext = 'tpl,html',
    ): int {
        $folders = new Folders(array_map($this->folderOf(...), [...$path, ...$includePath]), explode(',', $ext));
        $templates = $this->templates($path, $folders);
        $linter = new Linter($folders, $data === null ? null : JsonData::read($data));
        Wrappers::close();
        $findings = $linter->lint($templates);
        $format->report()->write($findings, count($templates), $output);
        $isCounted = fn(Finding $finding): bool => $strict || $finding->level === Level::Error;

        return array_any($findings, $isCounted) ? Command::FAILURE : Command::SUCCESS;
    }

    private function folderOf(string $path): string
    {
        if ($path !== '-' && !file_exists($path) && !is_link($path)) {
            throw new UsageError("no such file or folder: $path");
        }

        return is_dir($path) ? $path : dirname($path);
    }

    /**
     * @param list<string> $paths
     * @return list<Template>
     */
    private function templates(array $paths, Folders $folders): array
    {
        $files = array_unique(array_merge(...array_map($folders->templatesAt(...), $paths)));
        if ($files === []) {
            throw new UsageError('lint found no template; see zorvel lint --help');
        }

        return array_map(
            fn(string $file): Template => $file === '-' ? Template::fromInput() : Template::fromFile($file),
            array_values($files),
        );
    }
}
