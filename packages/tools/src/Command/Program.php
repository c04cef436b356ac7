<?php

declare(strict_types=1);

namespace Zorvel\Tools\Command;

use Composer\InstalledVersions;
use Symfony\Component\Console\Application;
use Symfony\Component\Console\Command\Command;
use Symfony\Component\Console\Exception\ExceptionInterface;
use Symfony\Component\Console\Input\ArgvInput;
use Symfony\Component\Console\Input\InputInterface;
use Symfony\Component\Console\Output\ConsoleOutputInterface;
use Symfony\Component\Console\Output\OutputInterface;
use Zorvel\Tools\UsageError;

/** The command "zorvel" with its subcommands. */
final class Program extends Application
{
    public function __construct()
    {
        parent::__construct('zorvel', InstalledVersions::getPrettyVersion('zorvel/tools') ?? 'unknown');
        $this->addCommands([new BundleCommand(), new LintCommand(), new RenderCommand()]);
    }

    /**
     * The console takes "-" for an option's value only behind a sign of equality.
     *
     * @param list<string> $words
     */
    public static function input(array $words): InputInterface
    {
        $joined = preg_replace('/\0--data\0-(?=\0|$)/', "\0--data=-", implode("\0", $words));

        return new ArgvInput(explode("\0", (string) $joined));
    }

    public function getLongVersion(): string
    {
        return "{$this->getName()} {$this->getVersion()}, extension " . (phpversion('zorvel') ?: 'not loaded');
    }

    /** @return int 0 all is well, 1 a template has a mistake, 2 wrong usage or unreadable data */
    public function doRun(InputInterface $input, OutputInterface $output): int
    {
        try {
            return parent::doRun($input, $output);
        } catch (ExceptionInterface|UsageError $error) {
            $errors = $output instanceof ConsoleOutputInterface ? $output->getErrorOutput() : $output;
            $errors->writeln("zorvel: {$error->getMessage()}", OutputInterface::OUTPUT_RAW);

            return Command::INVALID;
        }
    }

    protected function doRunCommand(Command $command, InputInterface $input, OutputInterface $output): int
    {
        if (in_array($command->getName(), ['bundle', 'lint', 'render'], true) && !extension_loaded('zorvel')) {
            throw new UsageError('the extension is not loaded; try php -d extension=zorvel vendor/bin/zorvel');
        }

        return parent::doRunCommand($command, $input, $output);
    }
}
