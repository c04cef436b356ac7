<?php

declare(strict_types=1);

namespace Zorvel\Tools\Command;

use Symfony\Component\Console\Attribute\Argument;
use Symfony\Component\Console\Attribute\AsCommand;
use Symfony\Component\Console\Attribute\Option;
use Symfony\Component\Console\Command\Command;
use Symfony\Component\Console\Output\OutputInterface;
use Zorvel\Tools\Bundle\BundledText;
use Zorvel\Tools\Bundle\Bundler;
use Zorvel\Tools\Finding;
use Zorvel\Tools\Level;
use Zorvel\Tools\Linter;
use Zorvel\Tools\Report\TextReport;
use Zorvel\Tools\Template\Folders;
use Zorvel\Tools\Template\Template;
use Zorvel\Tools\UsageError;

#[AsCommand('bundle', 'Put templates into one PHP file, for the fastest pages', help: <<<'TEXT'
    The file holds the texts of the templates, with the files that they include in place, for <info>Zorvel\View::bundled()</info>.
    An include stays when its file cannot stand in its place without changing the page; the command names it, and
    the view needs the folders for it.

    Exit status: 0 the file is written, or with <info>--check</info> is what would be written; 1 it is not, or a template has
    errors, and nothing was written; 2 wrong usage.
    TEXT)]
final readonly class BundleCommand
{
    /** @param list<string> $folder */
    public function __invoke(
        OutputInterface $output,
        #[Argument('The folders of the templates, in the order in which a view searches them')]
        array $folder,
        #[Option('The file to write', name: 'output', shortcut: 'o')]
        string $file = 'bundle.php',
        #[Option('Write nothing; tell whether the file is what would be written')]
        bool $check = false,
        #[Option('The extensions of templates, separated by commas; what they include may have any')]
        string $ext = 'tpl,html',
    ): int {
        $bundler = $this->bundler($folder, explode(',', $ext));
        Wrappers::close();
        $errors = $this->errors($bundler, new Folders($folder, explode(',', $ext)));
        if ($errors !== []) {
            new TextReport()->write($errors, count($bundler->files), $output);

            return Command::FAILURE;
        }
        $texts = $bundler->texts();

        return $check ? $this->check($file, Bundler::php($texts), $output) : $this->write($file, $texts, $output);
    }

    /**
     * @param list<string> $folders
     * @param list<string> $extensions
     */
    private function bundler(array $folders, array $extensions): Bundler
    {
        foreach ($folders as $folder) {
            is_dir($folder) || throw new UsageError("no such folder: $folder");
        }
        $bundler = new Bundler($folders, $extensions);

        return $bundler->files === [] ? throw new UsageError('bundle found no template; see zorvel bundle --help') : $bundler;
    }

    /** @return list<Finding> */
    private function errors(Bundler $bundler, Folders $folders): array
    {
        $findings = new Linter($folders)->lint(array_map(Template::fromFile(...), array_values($bundler->files)));

        return array_values(array_filter($findings, fn(Finding $finding): bool => $finding->level === Level::Error));
    }

    private function check(string $file, string $php, OutputInterface $output): int
    {
        $isCurrent = is_file($file) && file_get_contents($file) === $php;
        $output->writeln($isCurrent ? "$file is up to date." : "$file is not what the templates give: make it again.", OutputInterface::OUTPUT_RAW);

        return $isCurrent ? Command::SUCCESS : Command::FAILURE;
    }

    /**
     * A program that reads the file meanwhile has the old one or the new one.
     *
     * @param list<BundledText> $texts
     */
    private function write(string $file, array $texts, OutputInterface $output): int
    {
        if (@file_put_contents("$file.new", Bundler::php($texts)) === false || !@rename("$file.new", $file)) {
            throw new UsageError("cannot write $file");
        }
        foreach (array_unique(array_merge(...array_map(fn(BundledText $text): array => $text->includes(), $texts))) as $include) {
            $output->writeln("$include stays", OutputInterface::OUTPUT_RAW);
        }
        $output->writeln("$file is written.", OutputInterface::OUTPUT_RAW);

        return Command::SUCCESS;
    }
}
