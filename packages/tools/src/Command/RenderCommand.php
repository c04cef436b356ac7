<?php

declare(strict_types=1);

namespace Zorvel\Tools\Command;

use Symfony\Component\Console\Attribute\Argument;
use Symfony\Component\Console\Attribute\AsCommand;
use Symfony\Component\Console\Attribute\Option;
use Symfony\Component\Console\Command\Command;
use Symfony\Component\Console\Output\ConsoleOutputInterface;
use Symfony\Component\Console\Output\OutputInterface;
use Zorvel\TemplateError;
use Zorvel\Tools\Report\Excerpt;
use Zorvel\Tools\Template\Folders;
use Zorvel\Tools\Template\Template;
use Zorvel\Tools\UsageError;
use Zorvel\View;

#[AsCommand('render', 'Make the page of a template', help: <<<'TEXT'
    Exit status: 0 the page was written to standard output; 1 there is none, and standard error shows
    where the fault is; 2 wrong usage, or data that cannot be read.
    TEXT)]
final readonly class RenderCommand
{
    /** @param list<string> $folder */
    public function __invoke(
        OutputInterface $output,
        #[Argument('The template: a file, or with --folder its path inside of it')]
        string $template,
        #[Option('A folder with the template and what it includes; the one that the file is in, unless given')]
        array $folder = [],
        #[Option('The data, a JSON file; "-" for standard input')]
        ?string $data = null,
        #[Option('Take a tag that comes to nothing for a fault')]
        bool $strict = false,
    ): int {
        $folders = new Folders($folder === [] ? [dirname($template)] : $folder, []);
        $name = $folder === [] ? basename($template) : $template;
        $this->check($name, $folders);
        try {
            $page = new View($folders->paths, $strict)->render($name, $data === null ? [] : JsonData::read($data));
        } catch (TemplateError $error) {
            $this->show($error, $folders, $output instanceof ConsoleOutputInterface ? $output->getErrorOutput() : $output);

            return Command::FAILURE;
        }
        $output->write($page, false, OutputInterface::OUTPUT_RAW);

        return Command::SUCCESS;
    }

    private function check(string $template, Folders $folders): void
    {
        foreach ($folders->paths as $path) {
            is_dir($path) || throw new UsageError("no such folder: $path");
        }
        if ($folders->find($template) === null) {
            throw new UsageError("there is no template $template in " . implode(', ', $folders->paths));
        }
    }

    private function show(TemplateError $error, Folders $folders, OutputInterface $output): void
    {
        $output->writeln($error->getMessage(), OutputInterface::OUTPUT_RAW);
        $file = $folders->find($error->getTemplate());
        $tag = $error->getTag();
        if ($file !== null && $tag !== null) {
            $output->writeln(Excerpt::of(Template::fromFile($file)->text, $tag), OutputInterface::OUTPUT_RAW);
        }
    }
}
